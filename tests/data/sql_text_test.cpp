#include "app/data/sql_text.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::StringLiterals;
using SqlText::TokenKind;

namespace {

QString squeezed(QString text) { return text.simplified(); }

std::string utf8(const QString& text) { return text.toStdString(); }

}  // namespace

TEST(SqlTextTest, FindsParametersAndMacrosOutsideQuotesAndComments) {
  struct {
    QString text;
    QStringList parameters;
    QStringList macros;
  } const cases[] = {
      {u"select * from t where A = :ID and B like :AD"_s, {u"ID"_s, u"AD"_s}, {}},
      {u"select ':x', \":y\", `:z`, 'it''s :q', 'a\\':r' from t where c=:ID"_s, {u"ID"_s}, {}},
      {u"select 1 -- :no\n, 2 # :no\n, /* :no */ :yes"_s, {u"yes"_s}, {}},
      {u"set @a := 5, b=:B"_s, {u"B"_s}, {}},
      {u"select 5--:X"_s, {u"X"_s}, {}},
      {u"select * from t where a && b &KOSUL and 'x&y' = \"&Z\""_s, {}, {u"KOSUL"_s}},
      {u"VALUES (:FT_ID, :FT_TS_ID, :FT_RESIM);"_s, {u"FT_ID"_s, u"FT_TS_ID"_s, u"FT_RESIM"_s}, {}},
      {u"TS_TURU in (\"İŞLEM YAPILMADI\", \"İADE: EDİLDİ\") and x = :ŞUBE"_s, {u"ŞUBE"_s}, {}},
      {u"select 'open :x"_s, {}, {}},
      {u":"_s, {}, {}},
  };
  for (const auto& row : cases) {
    const auto parameters = SqlText::names(row.text, TokenKind::Parameter);
    EXPECT_EQ(QStringList(parameters.begin(), parameters.end()), row.parameters) << utf8(row.text);
    const auto macros = SqlText::names(row.text, TokenKind::Macro);
    EXPECT_EQ(QStringList(macros.begin(), macros.end()), row.macros) << utf8(row.text);
    EXPECT_EQ(SqlText::replaced(row.text, TokenKind::Parameter, [](const QString& name) { return u":"_s + name; }), row.text);
  }
}

TEST(SqlTextTest, AddsConditionsWhereTheyBelong) {
  struct {
    QString text;
    QString expected;
  } const cases[] = {
      {u"select * from t"_s, u"select * from t where (X)"_s},
      {u"select * from t;"_s, u"select * from t where (X) ;"_s},
      {u"select * from t -- note"_s, u"select * from t where (X) -- note"_s},
      {u"select * from t where a or b"_s, u"select * from t where ( a or b ) and (X)"_s},
      {u"select * from t where a -- why\norder by b"_s, u"select * from t where ( a -- why ) and (X) order by b"_s},
      {u"select a, (select max(b) from u where c group by d) from t group by a order by b limit 3"_s,
       u"select a, (select max(b) from u where c group by d) from t where (X) group by a order by b limit 3"_s},
      {u"select 'where' as `order` from t having a"_s, u"select 'where' as `order` from t where (X) having a"_s},
      {u"select a from t where b union all select c from u order by 1"_s,
       u"select a from t where ( b ) and (X) union all select c from u where (X) order by 1"_s},
      {u"update t set a=1 limit 1"_s, u"update t set a=1 where (X) limit 1"_s},
      {u"delete from t where a"_s, u"delete from t where ( a ) and (X)"_s},
  };
  for (const auto& row : cases) EXPECT_EQ(utf8(squeezed(SqlText::withCondition(row.text, u"X"_s))), utf8(row.expected));
}

TEST(SqlTextTest, TakesConditionsAwayAndSetsTheOrder) {
  EXPECT_EQ(squeezed(SqlText::withoutConditions(u"select * from teknikservis \nwhere TS_ID = -1"_s)), u"select * from teknikservis"_s);
  EXPECT_EQ(squeezed(SqlText::withoutConditions(u"select * from t where a in (select b from c where d) order by e"_s)),
            u"select * from t order by e"_s);
  struct {
    QString text;
    QString columns;
    QString expected;
  } const cases[] = {
      {u"select * from t"_s, u"LENGTH(TS_NO) ASC, TS_NO ASC"_s, u"select * from t order by LENGTH(TS_NO) ASC, TS_NO ASC"_s},
      {u"select * from t order by a limit 5"_s, u"b"_s, u"select * from t order by b limit 5"_s},
      {u"select * from t limit 5;"_s, u"b"_s, u"select * from t order by b limit 5;"_s},
      {u"select * from (select * from u order by c) x order by a desc"_s, u""_s, u"select * from (select * from u order by c) x"_s},
      {u"select a from t where b union select c from u order by 1"_s, u"2"_s, u"select a from t where b union select c from u order by 2"_s},
  };
  for (const auto& row : cases) EXPECT_EQ(utf8(squeezed(SqlText::withOrder(row.text, row.columns))), utf8(row.expected));
}
