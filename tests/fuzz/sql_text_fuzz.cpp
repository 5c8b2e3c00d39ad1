// Throws damaged statements at the tokenizer and the clause editor. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED which.
#include "base/data/sql_text.h"
#include "tests/fuzz/damage.h"

#include <iostream>

using SqlText::TokenKind;

namespace {

const QString condition = u"X_KOSUL = 1"_s;
const QString order = u"X_SIRA desc"_s;

/// What the tokenizer takes well, to be damaged, and what is strewn in.
const QByteArrayList samples{
    "select a, (select max(b) from u where c group by d) from t where :ID = 'it''s \\'x' or \"q\" /* no */ group by a order by b limit 3;",
    "(select a from t where b) union all (select distinct (c) from u limit 3) order by 1 limit 2 for update",
    "select SUBSTRING(A FROM :I FOR :N), CASE WHEN a&b THEN :C END from t use index for order by (i) &KOSUL -- why\nlock in share mode",
    "insert into s select a into @x from t # where\n where t.limit = `a``b` having x'41' <> N'ş'",
    "with x as (select a from t) select a, @limit, t.order, 5--:X from x window w as (order by a)", {}};
const QByteArrayList marks{"'", "\"", "`", "\\", "--", "-- ", "#", "/*", "*/", "/*!", "\n", "(", ")", ";", ":", ":A", "&", "&B", ":=", "&&", "@", ".", " where ",
                           " order by ", " union ", " limit ", "İş", " all ", " from ", " for ", " index for order by ", " group by ", " select ", " into ", "\u00A0"};

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

}  // namespace

TEST(SqlTextFuzz, TokensAndClausesHoldForDamagedStatements) {
  const qint64 count = Damage::run(samples, marks, [](const QByteArray& bytes, const QByteArray&) { checkAnyText(QString::fromUtf8(bytes)); });
  std::cout << count << " statements\n";
}
