#include "base/data/sql_text.h"
#include "tests/support/test.h"

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
      {u"select 'a'':q', \"b\"\":x\", `c``:y`, `d\\`, :Z, 'e\\\\', :W, 'f\\"_s, {u"Z"_s, u"W"_s}, {}},
      {u"/*! SQL_NO_CACHE :a */ :b /*/ :c */ :d --:e\n--\t:f"_s, {u"b"_s, u"d"_s, u"e"_s}, {}},
      {u"select x'41', N':a', @`:b`, ::c, &&d, &&&e, :5, & f, :g:h"_s, {u"c"_s, u"g"_s, u"h"_s}, {u"e"_s}},
      {u"select SUBSTRING(A FROM :I FOR :N), CASE WHEN a&b THEN :C END, 'o\\'r :x' &KOSUL FOR UPDATE;"_s,
       {u"I"_s, u"N"_s, u"C"_s}, {u"b"_s, u"KOSUL"_s}},
      {u"select *, &QTARIH as HTARIH, IF (D = 1, DATEDIFF(:S_TARIH, T), 0) as DONEM_TARIH\nWHERE :S_TARIH BETWEEN A AND B\n"
       "AND SOZ_STATU = \"AKTİF\"\nhaving DONEM_TARIH = 0"_s,
       {u"S_TARIH"_s, u"S_TARIH"_s}, {u"QTARIH"_s}},
      {u""_s, {}, {}},
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
      {u"select a from t group by a with rollup having a > 1"_s, u"select a from t where (X) group by a with rollup having a > 1"_s},
      {u"select SUBSTRING(a FROM 2 FOR 3) from t where (b or exists(select 1 from u where c)) limit 1 for update;;"_s,
       u"select SUBSTRING(a FROM 2 FOR 3) from t where ( (b or exists(select 1 from u where c)) ) and (X) limit 1 for update;;"_s},
      {u"select a from t use index for order by (i) ignore key for group by (j) order by a"_s,
       u"select a from t use index for order by (i) ignore key for group by (j) where (X) order by a"_s},
      {u"select a from t force index for join (i) where b lock in share mode"_s,
       u"select a from t force index for join (i) where ( b ) and (X) lock in share mode"_s},
      {u"(select a from t where b) union all (select distinct (c) from u limit 3) order by 1 limit 2"_s,
       u"(select a from t where ( b ) and (X) ) union all (select distinct (c) from u where (X) limit 3) order by 1 limit 2"_s},
      {u"((select a from t) except select b from u) intersect select c from v"_s,
       u"((select a from t where (X) ) except select b from u where (X) ) intersect select c from v where (X)"_s},
      {u"select t.order, @limit, t.`where`, CASE a WHEN 1 THEN 'x' ELSE \"where\" END from t"_s,
       u"select t.order, @limit, t.`where`, CASE a WHEN 1 THEN 'x' ELSE \"where\" END from t where (X)"_s},
      {u"select a /* where */ /*! where */ from t # where\n where/**/b -- group by"_s,
       u"select a /* where */ /*! where */ from t # where where (/**/b ) and (X) -- group by"_s},
      {u"insert into s select a into @x from t where b order by c"_s, u"insert into s select a into @x from t where ( b ) and (X) order by c"_s},
      {u"with x as (select a from t where b) select a from x window w as (order by a)"_s,
       u"with x as (select a from t where b) select a from x where (X) window w as (order by a)"_s},
      {u"select h.*, TS_TURU = \"DIŞ SERVİSTE\" from sozlesme h LEFT OUTER JOIN cari b ON (h.`R` = b.CA_ID)\n"
       "WHERE :T BETWEEN A AND B\nAND S = \"AKTİF\"\nhaving D = 0"_s,
       u"select h.*, TS_TURU = \"DIŞ SERVİSTE\" from sozlesme h LEFT OUTER JOIN cari b ON (h.`R` = b.CA_ID) WHERE "
       "( :T BETWEEN A AND B AND S = \"AKTİF\" ) and (X) having D = 0"_s},
  };
  for (const auto& row : cases) EXPECT_EQ(utf8(squeezed(SqlText::withCondition(row.text, u"X"_s))), utf8(row.expected));
  EXPECT_EQ(squeezed(SqlText::withCondition(u"select 1 from t"_s, u"X -- why"_s)), u"select 1 from t where (X -- why )"_s);
}

TEST(SqlTextTest, TakesConditionsAwayAndSetsTheOrder) {
  EXPECT_EQ(squeezed(SqlText::withoutConditions(u"select * from teknikservis \nwhere TS_ID = -1"_s)), u"select * from teknikservis"_s);
  EXPECT_EQ(squeezed(SqlText::withoutConditions(u"select * from t where a in (select b from c where d) order by e"_s)),
            u"select * from t order by e"_s);
  EXPECT_EQ(squeezed(SqlText::withoutConditions(u"(select a from t where b group by c) union (select d from u where e);"_s)),
            u"(select a from t group by c) union (select d from u );"_s);
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
      {u"(select a from t order by b limit 1) union (select c from u) order by 1 limit 2"_s, u"2"_s,
       u"(select a from t order by b limit 1) union (select c from u) order by 2 limit 2"_s},
      {u"(select a from t limit 1) union (select c from u limit 2) -- end"_s, u"1"_s,
       u"(select a from t limit 1) union (select c from u limit 2) order by 1 -- end"_s},
      {u"select a from t force index for order by (i) group by a with rollup for update"_s, u"a"_s,
       u"select a from t force index for order by (i) group by a with rollup order by a for update"_s},
      {u"select SUBSTRING(a from 1 for 2), group_concat(b order by c) from t order by t.limit desc lock in share mode;"_s, u""_s,
       u"select SUBSTRING(a from 1 for 2), group_concat(b order by c) from t lock in share mode;"_s},
      {u""_s, u""_s, u""_s},
  };
  for (const auto& row : cases) EXPECT_EQ(utf8(squeezed(SqlText::withOrder(row.text, row.columns))), utf8(row.expected));
}
