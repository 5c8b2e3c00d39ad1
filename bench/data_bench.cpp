// kvtk-bench-data ROWS: figures of the data layer against the bare client library and Qt's query model, on the ROWS slips of
// the server in KVTK_COMPUTER_NAME. Both sides of a ratio are measured in this run, by turns; times are the fastest of the
// rounds, so that what else the machine does counts least.

#include "base/data/filter_expression.h"
#include "base/data/my_query.h"
#include "app/login_rules.h"
#include "base/data/value.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQueryModel>

#include <mysql.h>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using namespace Measuring;

constexpr int rounds = 5;
constexpr int postRounds = 40;  ///< short ones, so that one without a wake-up on the other core is among them
constexpr auto allSlips = "select * from teknikservis";

/// Memory that the opened slips take, measured in a process that does nothing else.
double memoryOf(const QString& side) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(), {u"--memory"_s, side});
  process.waitForFinished(-1);
  return process.readAllStandardOutput().trimmed().toDouble();
}

int memoryChild(const QByteArray& side) {
  TMyConnection connection;
  open(connection);
  MYSQL* bare = bareConnection();
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(QString::fromLatin1(allSlips));
  const double before = residentMegabytes();
  if (side == "bare")
    bareResult(bare, allSlips);
  else
    query.Open();
  std::printf("%.3f\n", residentMegabytes() - before);
  return 0;
}

void compareOpening(const QString& size) {
  TMyConnection connection;
  open(connection);
  MYSQL* bare = bareConnection();
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(QString::fromLatin1(allSlips));
  // The rows of the round before are let go outside the time, on both sides.
  double us = std::numeric_limits<double>::max();
  double them = us;
  for (int i = 0; i < rounds; ++i) {
    us = std::min(us, milliseconds([&] { query.Open(); }));
    query.Close();
    MYSQL_RES* rows = nullptr;
    them = std::min(them, milliseconds([&] { rows = bareResult(bare, allSlips); }));
    mysql_free_result(rows);
  }
  figure(u"open_%1_vs_raw"_s.arg(size), us / them, "ratio");
  figure(u"open_%1_ms"_s.arg(size), us, "ms");
  mysql_close(bare);
}

void compareReading(TMyQuery& query) {
  QSqlDatabase database = QSqlDatabase::addDatabase(u"QMYSQL"_s);
  database.setHostName(qEnvironmentVariable("KVTK_COMPUTER_NAME"));
  database.setPort(3313);
  database.setDatabaseName(u"kvtk"_s);
  database.setUserName(LoginRules::account(u"quend"_s));
  database.setPassword(LoginRules::password(u"quend"_s));
  if (!database.open()) return;
  QSqlQueryModel model;
  model.setQuery(QString::fromLatin1(allSlips), database);
  while (model.canFetchMore()) model.fetchMore();
  qint64 letters = 0;
  const double value = ratio(
      [&] {
        for (int row = 0; row < query.RecordCount(); ++row)
          for (int field = 0; field < query.fieldCount(); ++field) letters += query.valueAt(row, field).toText().size();
      },
      [&] {
        for (int row = 0; row < model.rowCount(); ++row)
          for (int field = 0; field < model.columnCount(); ++field) letters += model.data(model.index(row, field)).toString().size();
      },
      2);
  figure(u"read_all_vs_qsqlquerymodel"_s, letters > 0 ? value : 0, "ratio");
}

void comparePosting(TMyConnection& connection) {
  MYSQL* bare = bareConnection();
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(u"select * from teknikservis order by TS_ID limit 2"_s);
  query.Open();
  query.Next();
  const QByteArray otherId = QByteArray::number(query.FieldByName(u"TS_ID"_s).asInteger());
  query.First();
  // Inside transactions, so that the disk's time for each commit hides nothing; on two rows, as each holds its lock.
  connection.StartTransaction();
  mysql_query(bare, "START TRANSACTION");
  // The same two statements on both sides: the change, and its row version read back.
  mysql_set_server_option(bare, MYSQL_OPTION_MULTI_STATEMENTS_ON);
  int turn = 0;
  const Field field = query.FieldByName(u"TS_MALIYET"_s);
  const double value = ratio(
      [&] {
        for (int i = 0; i < 100; ++i) {
          query.Edit();
          field.set(++turn);
          query.Post();
        }
      },
      [&] {
        for (int i = 0; i < 100; ++i) {
          const QByteArray statement = "UPDATE teknikservis SET TS_MALIYET=" + QByteArray::number(++turn) + " WHERE TS_ID=" + otherId +
                                       ";SELECT TS_STAMP FROM teknikservis WHERE TS_ID=" + otherId;
          if (mysql_real_query(bare, statement.constData(), ulong(statement.size())) != 0) qFatal("%s", mysql_error(bare));
          if (mysql_next_result(bare) != 0) qFatal("%s", mysql_error(bare));
          mysql_free_result(mysql_store_result(bare));
        }
      },
      postRounds);
  connection.Rollback();
  figure(u"post_one_row_us_vs_raw"_s, value, "ratio");
  mysql_close(bare);
}

void hundredThousand() {
  compareOpening(u"100k"_s);
  figure(u"rss_100k_vs_raw"_s, memoryOf(u"query"_s) / memoryOf(u"bare"_s), "ratio");
  TMyConnection connection;
  open(connection);
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(QString::fromLatin1(allSlips));
  query.Open();
  const auto contains = FilterExpression::condition(u"TS_MUSTERI"_s, FilterOperator::Contains, u"ışık"_s);
  figure(u"filter_100k_ms"_s, best([&] { query.setFilter(contains); }), "ms");
  query.setFilter(std::nullopt);
  const int amount = query.fieldIndex(u"TS_TUTAR"_s);
  double sum = 0;
  figure(u"sum_100k_ms"_s, best([&] { sum += query.sumOf(amount); }), "ms");
  compareReading(query);
  comparePosting(connection);
  figure(u"server_sort_100k_ms"_s, best([&] {
           query.SetOrderBy(u"LENGTH(TS_NO) ASC, TS_NO ASC"_s);
           query.Open();
         }),
         "ms");
}

}  // namespace

int main(int argc, char** argv) {
  nameTimeZone();
  QCoreApplication application(argc, argv);
  if (argc == 3 && QByteArrayView(argv[1]) == "--memory") return memoryChild(argv[2]);
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-data 100k|1m\n", stderr);
    return 2;
  }
  if (QByteArrayView(argv[1]) == "1m")
    compareOpening(u"1m"_s);
  else
    hundredThousand();
  return 0;
}
