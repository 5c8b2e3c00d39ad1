#pragma once

#include "base/data/my_connection.h"

/// The test run's own database server, at the address in KVTK_TEST_SERVER. Throws Exception when there is none: a test that
/// needs it must not pass without.
class TestDatabase {
 public:
  TestDatabase();
  /// Connected as the master account, with its rights.
  TMyConnection& connection() { return first_; }
  /// Another workstation; connected at the first call.
  TMyConnection& secondConnection();
  /// Connects any connection to the test server.
  static void open(TMyConnection& connection);
  /// Runs a statement, Turkish letters and all.
  void run(QStringView statement);
  /// What a query gives: cells parted by "|", rows by ";", NULL as "~".
  QString rows(const QString& statement);
  /// Empties every table that screens write, but for the single rows of sirket and doviz.
  void emptyTables();

 private:
  TMyConnection first_;
  TMyConnection second_;
};
