#pragma once

#include "base/data/my_connection.h"

class TMyQuery;

/// The test run's own database server, at the address in KVTK_TEST_SERVER. Throws Exception when there is none: a test that
/// needs it must not pass without.
class TestDatabase {
 public:
  TestDatabase();
  /// Connected as the master account, with its rights.
  TMyConnection& connection() { return first_; }
  /// Another workstation; connected at the first call.
  TMyConnection& secondConnection();
  /// Tells a connection the test server and the master account; open() connects it as well.
  static void aim(TMyConnection& connection);
  static void open(TMyConnection& connection);
  /// Number by which the server knows a connection.
  static qint64 idOf(TMyConnection& connection);
  /// Ends a connection at the server.
  void cut(TMyConnection& connection);
  /// Runs a statement, Turkish letters and all.
  void run(QStringView statement);
  /// What an open query shows in a column, from top to bottom.
  static QStringList column(const TMyQuery& query, const QString& name);
  /// What a query gives: cells parted by "|", rows by ";", NULL as "~".
  QString rows(const QString& statement);
  /// Empties every table that screens write, but for the single rows of sirket and doviz.
  void emptyTables();

 private:
  TMyConnection first_;
  TMyConnection second_;
};
