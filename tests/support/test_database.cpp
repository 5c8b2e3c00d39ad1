#include "tests/support/test_database.h"

#include "app/exceptions.h"
#include "app/login_rules.h"

using namespace Qt::StringLiterals;

TestDatabase::TestDatabase() { open(first_); }

TMyConnection& TestDatabase::secondConnection() {
  if (!second_.Connected()) open(second_);
  return second_;
}

void TestDatabase::open(TMyConnection& connection) {
  connection.Server = qEnvironmentVariable("KVTK_TEST_SERVER");
  if (connection.Server.isEmpty()) throw Exception(u"KVTK_TEST_SERVER is not set; run the tests with ./test"_s);
  connection.Port = 3313;
  connection.Database = u"kvtk"_s;
  connection.Username = LoginRules::account(u"quend"_s);
  connection.Password = LoginRules::password(u"quend"_s);
  connection.Connect();
}

void TestDatabase::emptyTables() {
  for (const char* table : {"teknikservis", "malzeme", "foto", "notlar", "caricihaz", "sozlesme", "cari", "cihaz", "disservis",
                            "servistip", "callerid"})
    first_.execute(QByteArray("DELETE FROM ") + table);
}
