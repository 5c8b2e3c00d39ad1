#include "tests/support/test_database.h"

#include "base/data/latin5.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "app/login_rules.h"

using namespace Qt::StringLiterals;

TestDatabase::TestDatabase() { open(first_); }

TMyConnection& TestDatabase::secondConnection() {
  if (!second_.Connected()) open(second_);
  return second_;
}

void TestDatabase::aim(TMyConnection& connection) {
  connection.Server = qEnvironmentVariable("KVTK_TEST_SERVER");
  if (connection.Server.isEmpty()) throw Exception(u"KVTK_TEST_SERVER is not set; run the tests with ./test"_s);
  connection.Port = 3313;
  connection.Database = u"kvtk"_s;
  connection.Username = LoginRules::account(u"quend"_s);
  connection.Password = LoginRules::password(u"quend"_s);
}

void TestDatabase::open(TMyConnection& connection) {
  aim(connection);
  connection.Connect();
}

qint64 TestDatabase::idOf(TMyConnection& connection) {
  TMyQuery query(connection, u"id"_s);
  query.SQL.setText(u"select connection_id()"_s);
  query.Open();
  return query.field(0).asInteger();
}

void TestDatabase::cut(TMyConnection& connection) { secondConnection().execute("KILL " + QByteArray::number(idOf(connection))); }

void TestDatabase::run(QStringView statement) {
  first_.execute(Latin5::encode(statement.toString(), u"statement"_s));
}

QStringList TestDatabase::column(const TMyQuery& query, const QString& name) {
  QStringList texts;
  for (int row = 0; row < query.RecordCount(); ++row) texts += query.valueAt(row, query.fieldIndex(name)).toText();
  return texts;
}

QString TestDatabase::rows(const QString& statement) {
  TMyQuery query(first_, u"check"_s);
  query.SQL.setText(statement);
  query.Open();
  QStringList all;
  for (int row = 0; row < query.RecordCount(); ++row) {
    QStringList cells;
    for (int field = 0; field < query.fieldCount(); ++field) {
      const Value value = query.valueAt(row, field);
      cells.append(value.isNull() ? u"~"_s : value.toText());
    }
    all.append(cells.join(u'|'));
  }
  return all.join(u';');
}

void TestDatabase::emptyTables() {
  for (const char* table : {"teknikservis", "malzeme", "foto", "notlar", "caricihaz", "sozlesme", "cari", "cihaz", "disservis",
                            "servistip", "callerid"})
    first_.execute(QByteArray("DELETE FROM ") + table);
}
