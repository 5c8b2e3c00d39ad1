#include "base/data/sql_text.h"

#include <algorithm>
#include <initializer_list>
#include <span>

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
  qsizetype behindOrder = -1;  ///< first clause that stands behind an ORDER BY, or the end of the branch
  qsizetype end = -1;
  static constexpr size_t none = size_t(-1);
  size_t open = none;   ///< the parentheses that the branch begins with, among the tokens
  size_t close = none;
};

using Tokens = std::span<const SqlText::Token>;

bool isOneOf(QStringView text, const SqlText::Token& token, std::initializer_list<QLatin1StringView> words) {
  return std::any_of(words.begin(), words.end(), [&](QLatin1StringView word) { return isWord(text, token, word); });
}

bool standsBehindOrder(QStringView text, const SqlText::Token& token) {
  return isOneOf(text, token, {"LIMIT"_L1, "OFFSET"_L1, "FETCH"_L1, "INTO"_L1, "FOR"_L1, "PROCEDURE"_L1, "LOCK"_L1});
}

bool startsTail(QStringView text, const SqlText::Token& token) {
  return isOneOf(text, token, {"GROUP"_L1, "HAVING"_L1, "WINDOW"_L1, "ORDER"_L1}) || standsBehindOrder(text, token);
}

bool startsBranch(QStringView text, const SqlText::Token& token) {
  return isOneOf(text, token, {"UNION"_L1, "EXCEPT"_L1, "INTERSECT"_L1});
}

qsizetype endOf(const SqlText::Token& token) { return token.begin + token.length; }

/// What the clauses consist of: tokens without blanks and comments.
std::vector<SqlText::Token> clauseTokens(QStringView text) {
  std::vector<SqlText::Token> found = SqlText::tokens(text);
  std::erase_if(found, [](const SqlText::Token& token) {
    return token.kind == SqlText::TokenKind::Space || token.kind == SqlText::TokenKind::Comment;
  });
  return found;
}

/// Reserved words are plain names behind a point or "@": t.order, @limit.
bool isPlainName(QStringView text, Tokens tokens, size_t i) {
  if (i == 0 || endOf(tokens[i - 1]) != tokens[i].begin) return false;
  const QChar before = text[tokens[i].begin - 1];
  return tokens[i - 1].kind == SqlText::TokenKind::Symbol && (before == u'.' || before == u'@');
}

/// Trailing blanks, comments and ";" stay behind what is inserted at the end.
void closeBranch(Branch& branch, qsizetype end) {
  branch.end = end;
  if (branch.tail < 0) branch.tail = end;
  if (branch.behindOrder < 0) branch.behindOrder = end;
}

void noteClause(QStringView text, Branch& branch, const SqlText::Token& token) {
  if (branch.where < 0 && isOneOf(text, token, {"SELECT"_L1, "FROM"_L1, "WHERE"_L1})) {
    // What seemed a tail was the INTO of "insert into t select" or "select a into @x from t".
    branch.tail = branch.order = branch.behindOrder = -1;
    if (!isWord(text, token, "WHERE"_L1)) return;
    branch.where = token.begin;
    branch.whereBody = endOf(token);
  } else if (startsTail(text, token)) {
    if (branch.tail < 0) branch.tail = token.begin;
    if (isWord(text, token, "ORDER"_L1)) {
      if (branch.order < 0) branch.order = token.begin;
      branch.behindOrder = -1;
    }
    if (branch.behindOrder < 0 && standsBehindOrder(text, token)) branch.behindOrder = token.begin;
  }
}

/// "USE INDEX FOR ORDER BY (...)" names an index and starts no clause.
bool isIndexHint(QStringView text, Tokens tokens, size_t i) {
  return i > 0 && i + 1 < tokens.size() && isWord(text, tokens[i], "FOR"_L1) &&
         isOneOf(text, tokens[i - 1], {"INDEX"_L1, "KEY"_L1}) && isOneOf(text, tokens[i + 1], {"JOIN"_L1, "ORDER"_L1, "GROUP"_L1});
}

/// The branches of the union that the tokens make up; begin is where its text begins.
std::vector<Branch> branches(QStringView text, Tokens tokens, qsizetype begin = 0) {
  std::vector<Branch> found(1);
  int depth = 0;
  bool fresh = true;  // nothing of the branch's own was seen yet
  qsizetype end = begin;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const auto& token = tokens[i];
    Branch& branch = found.back();
    const QChar symbol = token.kind == SqlText::TokenKind::Symbol ? text[token.begin] : QChar();
    if (depth == 0 && symbol == u';') break;
    if (symbol == u'(' && ++depth == 1 && fresh) branch.open = i;
    if (symbol == u')' && --depth == 0 && branch.open != Branch::none && branch.close == Branch::none) branch.close = i;
    const bool begins = depth == 0 && startsBranch(text, token) && !isPlainName(text, tokens, i);
    if (depth == 0 && !isPlainName(text, tokens, i)) {
      if (begins) {
        closeBranch(branch, end);
        found.emplace_back();
      } else if (isIndexHint(text, tokens, i)) {
        ++i;
      } else {
        noteClause(text, branch, token);
      }
    }
    fresh = begins || (fresh && isOneOf(text, token, {"ALL"_L1, "DISTINCT"_L1}));
    end = endOf(tokens[i]);
  }
  closeBranch(found.back(), end);
  return found;
}

/// The SELECTs (or the UPDATE, DELETE) that conditions belong to, those in the parentheses of a union too.
std::vector<Branch> conditionBranches(QStringView text, Tokens tokens, qsizetype begin = 0) {
  std::vector<Branch> found;
  for (const Branch& branch : branches(text, tokens, begin)) {
    if (branch.close == Branch::none) {
      found.push_back(branch);
      continue;
    }
    const Tokens inner = tokens.subspan(branch.open + 1, branch.close - branch.open - 1);
    const auto nested = conditionBranches(text, inner, endOf(tokens[branch.open]));
    found.insert(found.end(), nested.begin(), nested.end());
  }
  return found;
}

/// A text that something can follow: a comment to the line's end gets its line break.
QString closed(const QString& text) {
  const auto tokens = SqlText::tokens(text);
  const bool open = !tokens.empty() && tokens.back().kind == SqlText::TokenKind::Comment && text[tokens.back().begin] != u'/';
  return open ? text + u'\n' : text;
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
  const QString added = u"("_s + closed(condition) + u")\n"_s;
  const auto found = conditionBranches(text, clauseTokens(text));
  for (auto branch = found.rbegin(); branch != found.rend(); ++branch) {
    if (branch->where < 0) {
      result.insert(branch->tail, u"\nwhere "_s + added);
    } else {
      const QString body = text.mid(branch->whereBody, branch->tail - branch->whereBody);
      result.replace(branch->whereBody, body.size(), u" ("_s + body + u"\n) and "_s + added);
    }
  }
  return result;
}

QString SqlText::withoutConditions(const QString& text) {
  QString result = text;
  const auto found = conditionBranches(text, clauseTokens(text));
  for (auto branch = found.rbegin(); branch != found.rend(); ++branch)
    if (branch->where >= 0) result.remove(branch->where, branch->tail - branch->where);
  return result;
}

QString SqlText::withOrder(const QString& text, const QString& columns) {
  QString result = text;
  const Branch last = branches(text, clauseTokens(text)).back();
  if (last.order >= 0) result.remove(last.order, last.behindOrder - last.order);
  if (columns.isEmpty()) return result;
  return result.insert(last.order >= 0 ? last.order : last.behindOrder, u"\norder by "_s + columns + u"\n"_s);
}
