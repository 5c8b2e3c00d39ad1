#include "app/data/sql_text.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool isNameStart(QChar c) { return c.isLetter() || c == u'_'; }
bool isNamePart(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$'; }

QChar at(QStringView text, qsizetype i) { return i < text.size() ? text[i] : QChar(); }

qsizetype quotedEnd(QStringView text, qsizetype begin) {
  const QChar quote = text[begin];
  for (qsizetype i = begin + 1; i < text.size(); ++i) {
    if (text[i] == u'\\' && quote != u'`') {
      ++i;
    } else if (text[i] == quote) {
      if (at(text, i + 1) != quote) return i + 1;
      ++i;
    }
  }
  return text.size();
}

qsizetype nameEnd(QStringView text, qsizetype begin) {
  qsizetype i = begin;
  while (i < text.size() && isNamePart(text[i])) ++i;
  return i;
}

/// Ends of a comment that begins here; the same place when none does.
qsizetype commentEnd(QStringView text, qsizetype begin) {
  const QChar first = text[begin];
  const QChar second = at(text, begin + 1);
  if (first == u'/' && second == u'*') {
    const qsizetype end = text.indexOf(u"*/", begin + 2);
    return end < 0 ? text.size() : end + 2;
  }
  const QChar third = at(text, begin + 2);
  if (first == u'#' || (first == u'-' && second == u'-' && (third.isNull() || third.isSpace()))) {
    const qsizetype end = text.indexOf(u'\n', begin);
    return end < 0 ? text.size() : end;
  }
  return begin;
}

SqlText::Token nextToken(QStringView text, qsizetype i) {
  using enum SqlText::TokenKind;
  const QChar c = text[i];
  if (c.isSpace()) {
    qsizetype end = i;
    while (end < text.size() && text[end].isSpace()) ++end;
    return {Space, i, end - i};
  }
  if (const qsizetype end = commentEnd(text, i); end > i) return {Comment, i, end - i};
  if (c == u'\'' || c == u'"' || c == u'`') return {Quoted, i, quotedEnd(text, i) - i};
  if (isNamePart(c)) return {Word, i, nameEnd(text, i) - i};
  if ((c == u':' || c == u'&') && isNameStart(at(text, i + 1)))
    return {c == u':' ? Parameter : Macro, i, nameEnd(text, i + 1) - i};
  if ((c == u':' && at(text, i + 1) == u'=') || (c == u'&' && at(text, i + 1) == u'&')) return {Symbol, i, 2};
  return {Symbol, i, 1};
}

bool isWord(QStringView text, const SqlText::Token& token, QLatin1StringView word) {
  return token.kind == SqlText::TokenKind::Word && text.mid(token.begin, token.length).compare(word, Qt::CaseInsensitive) == 0;
}

/// Where the clauses of one SELECT (or UPDATE, DELETE) stand; -1 where there is none.
struct Branch {
  qsizetype where = -1;
  qsizetype whereBody = -1;
  qsizetype tail = -1;   ///< first clause behind WHERE, or the end of the branch
  qsizetype order = -1;
  qsizetype afterOrder = -1;
  qsizetype end = -1;
};

bool startsTail(QStringView text, const SqlText::Token& token) {
  static constexpr std::array words = {"GROUP"_L1, "HAVING"_L1, "WINDOW"_L1, "ORDER"_L1,    "LIMIT"_L1, "OFFSET"_L1,
                                       "FETCH"_L1, "INTO"_L1,   "FOR"_L1,    "PROCEDURE"_L1, "LOCK"_L1};
  for (const auto word : words)
    if (isWord(text, token, word)) return true;
  return false;
}

bool startsBranch(QStringView text, const SqlText::Token& token) {
  return isWord(text, token, "UNION"_L1) || isWord(text, token, "EXCEPT"_L1) || isWord(text, token, "INTERSECT"_L1);
}

/// End of the statement's own words: trailing blanks, comments and ";" stay behind what is inserted there.
void closeBranch(Branch& branch, qsizetype end) {
  branch.end = end;
  if (branch.tail < 0) branch.tail = end;
  if (branch.order >= 0 && branch.afterOrder < 0) branch.afterOrder = end;
}

std::vector<Branch> branches(QStringView text) {
  std::vector<Branch> found(1);
  int depth = 0;
  qsizetype lastWordEnd = 0;
  for (const auto& token : SqlText::tokens(text)) {
    if (token.kind == SqlText::TokenKind::Space || token.kind == SqlText::TokenKind::Comment) continue;
    const QChar symbol = token.kind == SqlText::TokenKind::Symbol ? text[token.begin] : QChar();
    if (symbol == u'(') ++depth;
    if (symbol == u')') --depth;
    if (depth == 0) {
      Branch& branch = found.back();
      if (symbol == u';') break;
      if (startsBranch(text, token)) {
        closeBranch(branch, lastWordEnd);
        found.emplace_back();
      } else if (isWord(text, token, "WHERE"_L1) && branch.where < 0 && branch.tail < 0) {
        branch.where = token.begin;
        branch.whereBody = token.begin + token.length;
      } else if (startsTail(text, token)) {
        // "FORCE INDEX FOR ORDER BY" and the like stand before WHERE only in hints, which the program does not use.
        if (branch.tail < 0) branch.tail = token.begin;
        if (isWord(text, token, "ORDER"_L1))
          branch.order = token.begin;
        else if (branch.order >= 0 && branch.afterOrder < 0)
          branch.afterOrder = token.begin;
      }
    }
    lastWordEnd = token.begin + token.length;
  }
  closeBranch(found.back(), lastWordEnd);
  return found;
}

}  // namespace

std::vector<SqlText::Token> SqlText::tokens(QStringView text) {
  std::vector<Token> found;
  for (qsizetype i = 0; i < text.size();) {
    found.push_back(nextToken(text, i));
    i += found.back().length;
  }
  return found;
}

std::vector<QString> SqlText::names(QStringView text, TokenKind kind) {
  std::vector<QString> found;
  for (const Token& token : tokens(text))
    if (token.kind == kind) found.push_back(text.mid(token.begin + 1, token.length - 1).toString());
  return found;
}

QString SqlText::replaced(const QString& text, TokenKind kind, const std::function<QString(const QString&)>& replacement) {
  QString result;
  result.reserve(text.size());
  for (const Token& token : tokens(text)) {
    if (token.kind == kind)
      result += replacement(text.mid(token.begin + 1, token.length - 1));
    else
      result += QStringView(text).mid(token.begin, token.length);
  }
  return result;
}

QString SqlText::withCondition(const QString& text, const QString& condition) {
  QString result = text;
  const auto found = branches(text);
  for (auto branch = found.rbegin(); branch != found.rend(); ++branch) {
    if (branch->where < 0) {
      result.insert(branch->tail, u"\nwhere ("_s + condition + u")\n"_s);
    } else {
      const QString body = text.mid(branch->whereBody, branch->tail - branch->whereBody);
      result.replace(branch->whereBody, body.size(), u" ("_s + body + u"\n) and ("_s + condition + u")\n"_s);
    }
  }
  return result;
}

QString SqlText::withoutConditions(const QString& text) {
  QString result = text;
  const auto found = branches(text);
  for (auto branch = found.rbegin(); branch != found.rend(); ++branch)
    if (branch->where >= 0) result.remove(branch->where, branch->tail - branch->where);
  return result;
}

QString SqlText::withOrder(const QString& text, const QString& columns) {
  QString result = text;
  const Branch last = branches(text).back();
  if (last.order >= 0) result.remove(last.order, last.afterOrder - last.order);
  if (columns.isEmpty()) return result;
  // A new ORDER BY stands before LIMIT and what follows it.
  const Branch bare = branches(result).back();
  qsizetype place = bare.end;
  int depth = 0;
  for (const Token& token : tokens(result)) {
    if (token.begin < bare.tail) continue;
    const QChar symbol = token.kind == TokenKind::Symbol ? result[token.begin] : QChar();
    if (symbol == u'(') ++depth;
    if (symbol == u')') --depth;
    static constexpr std::array behind = {"LIMIT"_L1, "OFFSET"_L1, "FETCH"_L1, "INTO"_L1, "FOR"_L1, "PROCEDURE"_L1, "LOCK"_L1};
    for (const auto word : behind)
      if (depth == 0 && isWord(result, token, word)) place = qMin(place, token.begin);
  }
  return result.insert(place, u"\norder by "_s + columns + u"\n"_s);
}
