// Throws random statements at the tokenizer and the clause editor. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED which.
#include "base/data/sql_text.h"
#include "tests/fuzz/statement_maker.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QRegularExpression>

#include <iostream>

using namespace Qt::StringLiterals;
using SqlText::TokenKind;

namespace {

const QString condition = QString::fromUtf16(StatementMaker::condition);
const QString order = QString::fromUtf16(StatementMaker::order);

/// The tokens that mean something to the server.
QStringList meaning(const QString& text) {
  QStringList found;
  for (const auto& token : SqlText::tokens(text))
    if (token.kind != TokenKind::Space && token.kind != TokenKind::Comment) found.append(text.mid(token.begin, token.length));
  return found;
}

/// Quotes and comments as another reading of the server's manual finds them: "q" under each of their characters.
QString quotesAndComments(const QString& text) {
  static const QRegularExpression pattern(
      uR"('(?:''|\\.|[^'\\])*+(?:'|\\?\z)|"(?:""|\\.|[^"\\])*+(?:"|\\?\z)|`(?:``|[^`])*+(?:`|\z))"
      uR"(|/\*.*?(?:\*/|\z)|(?:#|--(?=[\s\x{0}\x{85}]|\z))[^\n]*)"_s,
      QRegularExpression::DotMatchesEverythingOption | QRegularExpression::UseUnicodePropertiesOption);
  QString mask(text.size(), u'.');
  for (auto match = pattern.globalMatch(text); match.hasNext();) {
    const auto found = match.next();
    mask.replace(found.capturedStart(), found.capturedLength(), QString(found.capturedLength(), u'q'));
  }
  return mask;
}

/// Whether clauses can stand in a text at all: its parentheses are balanced, and no "--" turns into a comment when a blank
/// comes behind it.
bool canHoldClauses(const QString& text) {
  const QString mask = quotesAndComments(text);
  int depth = 0;
  for (qsizetype i = 0; i < text.size() && depth >= 0; ++i) {
    if (mask[i] == u'q') continue;
    depth += text[i] == u'(' ? 1 : text[i] == u')' ? -1 : 0;
    if (QStringView(text).sliced(i).startsWith(u"--")) return false;
  }
  return depth == 0;
}

/// What holds for every text, however broken.
void checkAnyText(const QString& text) {
  const QString mask = quotesAndComments(text);
  QString own;
  qsizetype end = 0;
  for (const auto& token : SqlText::tokens(text)) {
    ASSERT_EQ(token.begin, end);
    ASSERT_GT(token.length, 0);
    end += token.length;
    const bool isHidden = token.kind == TokenKind::Quoted || token.kind == TokenKind::Comment;
    own += QString(token.length, isHidden ? u'q' : u'.');
  }
  ASSERT_EQ(end, text.size());
  ASSERT_EQ(own.toStdString(), mask.toStdString());
  const auto same = [](QChar mark) { return [mark](const QString& name) { return mark + name; }; };
  ASSERT_EQ(SqlText::replaced(text, TokenKind::Parameter, same(u':')), text);
  ASSERT_EQ(SqlText::replaced(text, TokenKind::Macro, same(u'&')), text);

  SqlText::withOrder(text, {});
  SqlText::withOrder(text, order);
  QString bare = SqlText::withoutConditions(text);
  for (QString barer; (barer = SqlText::withoutConditions(bare)) != bare; bare = barer) ASSERT_LT(barer.size(), bare.size());
  const QString conditioned = SqlText::withCondition(bare, condition);
  // Behind a quote that never ends there is no place for a condition.
  if (quotesAndComments(bare + u"\n "_s).endsWith(u'q')) return;
  ASSERT_TRUE(meaning(conditioned).contains(u"X_KOSUL"_s));
  if (!canHoldClauses(bare)) return;
  ASSERT_EQ(meaning(SqlText::withoutConditions(conditioned)).join(u' ').toStdString(), meaning(bare).join(u' ').toStdString());
}

void checkMadeStatement(const MadeStatement& made) {
  const auto expect = [&made](MadeStatement::Variant variant, const QString& result) {
    ASSERT_EQ(meaning(result).join(u' ').toStdString(), meaning(made.pieces[variant].join(u' ')).join(u' ').toStdString());
  };
  const auto parameters = SqlText::names(made.text, TokenKind::Parameter);
  ASSERT_EQ(QStringList(parameters.begin(), parameters.end()), made.parameters);
  expect(MadeStatement::Plain, made.text);
  expect(MadeStatement::Conditioned, SqlText::withCondition(made.text, condition));
  expect(MadeStatement::Conditioned, SqlText::withCondition(made.text, condition + u" -- why"_s));
  expect(MadeStatement::Unconditioned, SqlText::withoutConditions(made.text));
  expect(MadeStatement::Unconditioned, SqlText::withoutConditions(SqlText::withCondition(made.text, condition)));
  expect(MadeStatement::Unordered, SqlText::withOrder(made.text, {}));
  expect(MadeStatement::Ordered, SqlText::withOrder(made.text, order));
  expect(MadeStatement::Ordered, SqlText::withOrder(SqlText::withOrder(made.text, u"other"_s), order));
}

qint64 setting(const char* name, qint64 usual) {
  bool isNumber = false;
  const qint64 number = qEnvironmentVariable(name).toLongLong(&isNumber);
  return isNumber ? number : usual;
}

}  // namespace

TEST(SqlTextFuzz, TokensAndClausesHoldForRandomStatements) {
  const qint64 milliseconds = setting("KVTK_FUZZ_SECONDS", FUZZ_SECONDS) * 1000;
  StatementMaker maker(quint64(setting("KVTK_FUZZ_SEED", 3313)));
  QElapsedTimer whole;
  whole.start();
  qint64 count = 0;
  do {
    const MadeStatement made = maker.statement();
    const QString damaged = maker.damaged(made.text);
    SCOPED_TRACE("statement " + std::to_string(count) + ":\n" + made.text.toStdString() + "\ndamaged:\n" + damaged.toStdString());
    QElapsedTimer one;
    one.start();
    checkMadeStatement(made);
    if (!HasFatalFailure()) checkAnyText(made.text);
    if (!HasFatalFailure()) checkAnyText(damaged);
    if (HasFatalFailure()) return;
    ASSERT_LT(one.elapsed(), 2000) << "hangs";
    ++count;
  } while (whole.elapsed() < milliseconds);
  std::cout << count << " statements\n";
}
