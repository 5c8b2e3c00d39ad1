#include "base/data/value.h"
#include "tests/data/query_fixture.h"

TEST_F(QueryTest, EveryServerIsAsLenientAndComparesAlike) {
  run("INSERT INTO deneme (NO, AD, KISA, TARIH, TUTAR) VALUES ('1', 'b', 1, '0000-00-00', 1/0), ('2', 'a', 1, '2020-00-00', 1)");
  run("UPDATE deneme SET KISA = 99999, MIKTAR = 1/0 WHERE NO = '1'");
  EXPECT_EQ(scalar(u"select concat_ws('|', count(*), NO is null, max(TARIH)) from deneme where \"x\" = 'x' group by TUTAR is null "
                   "order by AD"_s),
            u"1|0|2020-00-00"_s);
  EXPECT_EQ(scalar(u"select concat_ws('|', KISA, TARIH, TUTAR is null) from deneme where NO = '1'"_s), u"32767|0000-00-00|1"_s);
  EXPECT_EQ(scalar(u"select concat('i' = 'İ', 'ı' = 'I', 'i' = 'I', 'ş' = 's', upper('ığ'), length('€'), 'a' || 0)"_s), u"1100IĞ10"_s);
}

TEST_F(QueryTest, TheOtherServersDuplicateMessagesReadAlike) {
  struct {
    int code;
    QString sent;
    QString shown;
  } const cases[] = {
      {1062, u"Duplicate entry '1' for key 'deneme.DN_NO'"_s, u"Duplicate entry '1' for key 'DN_NO'"_s},
      {1062, u"Duplicate entry '1-İŞ' for key 'malzeme.PRIMARY'"_s, u"Duplicate entry '1-İŞ' for key 'PRIMARY'"_s},
      {1586, u"Duplicate entry '1.5' for key 'cari.CA_KOD'"_s, u"Duplicate entry '1.5' for key 'CA_KOD'"_s},
      {1062, u"Duplicate entry 'a' for key 'b.c'' for key 't.KOD'"_s, u"Duplicate entry 'a' for key 'b.c'' for key 'KOD'"_s},
      {1062, u"Duplicate entry '' for key 'it's.A.B'"_s, u"Duplicate entry '' for key 'A.B'"_s},
      {1062, u"Duplicate entry 'a.b' for key 'KOD'"_s, u"Duplicate entry 'a.b' for key 'KOD'"_s},
      {1062, u"Duplicate entry 'a.b"_s, u"Duplicate entry 'a.b"_s},
      {1644, u"nothing for key 'a.b'"_s, u"nothing for key 'a.b'"_s},
  };
  TMyQuery signal(connection, u"qSignal"_s);
  for (const auto& row : cases) {
    signal.SQL.setText(u"SIGNAL SQLSTATE '23000' SET MYSQL_ERRNO=%1, MESSAGE_TEXT=:METIN"_s.arg(row.code));
    signal.ParamByName(u"METIN"_s) = row.sent;
    EXPECT_EQ(raised<EMyError>([&] { signal.Execute(); }).message().toStdString(), (u"#23000"_s + row.shown).toStdString());
  }
}

TEST_F(QueryTest, ARowOfAJoinIsReadAgainAndWrittenByItsOwnTablesKey) {
  const qint64 id = insertRow(u"1"_s, u"first"_s);
  insertRow(u"2"_s, u"other"_s);
  for (const QString& text : {
           u"select a.*, b.ID as B_ID, b.AD as B_AD from deneme a left join deneme b on (b.NO = '2' and b.ID <> a.ID) where a.NO = '1'"_s,
           u"select deneme.*, `iş 1`.* from deneme, deneme `iş 1` where deneme.NO = '1' and `iş 1`.NO = '2'"_s,
           u"select * from kvtk.deneme as a join deneme as b using (NO) &KOSUL order by a.ID"_s}) {
    TMyQuery joined(connection, u"qJoined"_s);
    joined.Options.CheckRowVersion = true;
    joined.SQL.setText(text);
    if (text.contains(u'&')) joined.MacroByName(u"KOSUL"_s) = u"where a.NO = '1'"_s;
    joined.Open();
    ASSERT_EQ(joined.RecordCount(), 1) << text.toStdString();
    run("UPDATE deneme SET AD='second' WHERE NO='1'");
    joined.RefreshRecord();
    EXPECT_EQ(joined.FieldByName(u"ID"_s).value(), Value(id)) << text.toStdString();
    EXPECT_EQ(joined.FieldByName(u"AD"_s).asText(), u"second"_s) << text.toStdString();
    post(joined, u"AD"_s, u"third"_s);
    EXPECT_EQ(scalar(u"select group_concat(AD order by NO) from deneme"_s), u"third,other"_s) << text.toStdString();
    joined.Delete();
    EXPECT_EQ(scalar(u"select group_concat(NO) from deneme"_s), u"2"_s) << text.toStdString();
    run("INSERT INTO deneme (ID, NO, AD) VALUES (1, '1', 'first')");
  }
}
