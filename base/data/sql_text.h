#pragma once

#include <QString>
#include <QStringView>

#include <functional>
#include <vector>

/// Tokens and clauses of SQL texts of the MySQL family.
namespace SqlText {

enum class TokenKind { Space, Comment, Quoted, Word, Parameter, Macro, Symbol };

/// A piece of the text; the pieces put together are the text again.
struct Token {
  TokenKind kind;
  qsizetype begin;
  qsizetype length;
};

/// Cuts a text into tokens. Knows the three kinds of quotes with their escapes, the three kinds of comments, :NAME and
/// &NAME, and that ":=" and "&&" are symbols. An unclosed quote or comment reaches to the end.
std::vector<Token> tokens(QStringView text);

/// Names of the tokens of a kind, in their order, without ":" or "&".
std::vector<QString> names(QStringView text, TokenKind kind);

/// The text with every token of a kind replaced by what replacement gives for its name.
QString replaced(const QString& text, TokenKind kind, const std::function<QString(const QString& name)>& replacement);

/// The text with a condition added to its WHERE by AND, in every branch of a union.
QString withCondition(const QString& text, const QString& condition);

/// The text without any WHERE clause.
QString withoutConditions(const QString& text);

/// The text with its ORDER BY replaced; empty columns take it away.
QString withOrder(const QString& text, const QString& columns);

}  // namespace SqlText
