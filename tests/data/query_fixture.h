#pragma once

#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

#include <stdexcept>

/// The error that the work raises. A work that raises none ends the test: what follows would look at an error that is not there.
template <class Error, class Work>
Error raised(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error;
  }
  throw std::logic_error("nothing was raised");
}

/// A table of its own, "deneme", with a column of every type, and a query on it.
class QueryTest : public testing::Test {
 protected:
  QueryTest();
  void SetUp() override;
  void TearDown() override;

  void run(const char* statement) { connection.execute(statement); }
  /// The first cell of what the statement gives.
  QString scalar(const QString& statement);
  qint64 insertRow(const QString& no, const QString& name);
  /// Puts a value into the current row and leaves it in edit; post() writes it as well.
  static void edit(TMyQuery& target, const QString& field, const Value& value);
  static void post(TMyQuery& target, const QString& field, const Value& value);
  static void openRow(TMyQuery& target, qint64 id);

  TestDatabase database;
  TMyConnection& connection = database.connection();
  TMyQuery query;
};
