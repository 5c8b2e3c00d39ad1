#include "tests/data/query_fixture.h"

#include "base/data/value.h"

QueryTest::QueryTest() : query(connection, u"qDeneme"_s) {}

void QueryTest::SetUp() {
  run("DROP TABLE IF EXISTS deneme");
  run("CREATE TABLE deneme (ID BIGINT AUTO_INCREMENT PRIMARY KEY, NO VARCHAR(15), AD VARCHAR(200), KISA SMALLINT, TUTAR DOUBLE, "
      "MIKTAR DECIMAL(12,3), TARIH DATE, SAAT TIME, AN DATETIME, RESIM LONGBLOB, NOTU LONGTEXT, "
      "STAMP TIMESTAMP(6) NOT NULL DEFAULT CURRENT_TIMESTAMP(6) ON UPDATE CURRENT_TIMESTAMP(6), UNIQUE KEY DN_NO (NO)) "
      "ENGINE=InnoDB CHARSET=latin5");
  query.Options.CheckRowVersion = true;
  query.Options.SetEmptyStrToNull = true;
  query.SQL.setText(u"select * from deneme where ID = :ID"_s);
}

void QueryTest::TearDown() { database.secondConnection().execute("DROP TABLE IF EXISTS deneme"); }

QString QueryTest::scalar(const QString& statement) {
  TMyQuery scratch(connection, u"scratch"_s);
  scratch.SQL.setText(statement);
  scratch.Open();
  return scratch.IsEmpty() ? u"<none>"_s : scratch.field(0).asText();
}

qint64 QueryTest::insertRow(const QString& no, const QString& name) {
  query.Open();
  query.Insert();
  query.FieldByName(u"NO"_s).set(no);
  query.FieldByName(u"AD"_s).set(name);
  query.Post();
  return qint64(query.lastInsertId());
}

void QueryTest::edit(TMyQuery& target, const QString& field, const Value& value) {
  target.Edit();
  target.FieldByName(field).set(value);
}

void QueryTest::post(TMyQuery& target, const QString& field, const Value& value) {
  edit(target, field, value);
  target.Post();
}

void QueryTest::openRow(TMyQuery& target, qint64 id) {
  target.SQL.setText(u"select * from deneme where ID = :ID"_s);
  target.ParamByName(u"id"_s) = id;
  target.Open();
}
