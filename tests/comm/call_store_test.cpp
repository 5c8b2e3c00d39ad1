// The list of calls gives what the plain three-way join gives.
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "comm/call_store.h"
#include "simulator/telephone_monitor.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

namespace {

QStringList rowsOf(TMyQuery& query) {
  query.Open();
  QStringList rows;
  for (int row = 0; row < query.RecordCount(); ++row) {
    QString line;
    for (int field = 0; field < query.fieldCount(); ++field)
      line += query.fieldInfo(field).name.toUpper() + u'=' + query.valueAt(row, field).toText() + u'|';
    rows += line;
  }
  rows.sort();
  return rows;
}

}  // namespace

TEST(CallStore, GivesTheRowsOfTheThreeWayJoin) {
  TestDatabase database;
  database.emptyTables();
  database.run(
      u"INSERT INTO cari (CA_AD, CA_TEL, CA_TEL2, CA_CEP) VALUES ('ALİ', '1', '2', '3'), ('VELİ', '3', '3', '3'), "
      "('ŞULE', '4 ', '4', NULL), ('OYA', NULL, '', NULL)");
  database.run(
      u"INSERT INTO callerid (cid_tarih, cid_saat, cid_hat, cid_telefon) VALUES ('2026-02-01', '10:00', '1', '1'), "
      "('2026-02-01', '11:00', '1', '3'), ('2026-02-02', '09:00', '2', '4'), ('2026-02-02', '08:00', '2', '9'), "
      "('2026-02-03', '08:00', '2', NULL), (NULL, NULL, NULL, '')");
  TMyQuery list(database.connection(), u"list"_s);
  CallStore::setListStatement(list);
  TMyQuery plain(database.connection(), u"plain"_s);
  plain.SQL.setText(
      u"SELECT  * FROM CALLERID  LEFT JOIN CARI on (CARI.CA_TEL = CALLERID.CID_TELEFON) or (CARI.CA_TEL2 = CALLERID.CID_TELEFON) "
      "or (CARI.CA_CEP = CALLERID.CID_TELEFON) ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC"_s);
  const QStringList rows = rowsOf(list);
  EXPECT_EQ(rows.size(), 7);
  EXPECT_EQ(rows, rowsOf(plain));
  list.Open();
  EXPECT_EQ(list.FieldByName(u"CID_TARIH"_s).asDate(), QDate(2026, 2, 3));

  TelephoneMonitor::ring(database.connection(), 2, u"1"_s);
  CallStore::setListStatement(list, QDate(2026, 2, 1));
  EXPECT_EQ(rowsOf(list).size(), 3);
  CallStore::setListStatement(list, QDate::currentDate());
  list.Open();
  ASSERT_EQ(list.RecordCount(), 1);
  EXPECT_EQ(list.FieldByName(u"CA_AD"_s).asText(), u"ALİ"_s);
  database.emptyTables();
}
