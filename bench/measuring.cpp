#include "bench/measuring.h"

#include "base/data/my_connection.h"
#include "app/login_rules.h"

#include <QElapsedTimer>
#include <QFile>

#include <malloc.h>
#include <mysql.h>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Account {
  QString server = qEnvironmentVariable("KVTK_COMPUTER_NAME");
  QString name = LoginRules::account(u"quend"_s);
  QString password = LoginRules::password(u"quend"_s);
};

}  // namespace

void Measuring::figure(const QString& name, double value, const char* unit) {
  std::printf("%s %.3f %s\n", name.toUtf8().constData(), value, unit);
  std::fflush(stdout);
}

double Measuring::milliseconds(const std::function<void()>& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return double(timer.nsecsElapsed()) / 1e6;
}

double Measuring::best(const std::function<void()>& work, int times) {
  double fastest = std::numeric_limits<double>::max();
  for (int i = 0; i < times; ++i) fastest = std::min(fastest, milliseconds(work));
  return fastest;
}

double Measuring::ratio(const std::function<void()>& ours, const std::function<void()>& other, int times) {
  double us = std::numeric_limits<double>::max();
  double them = us;
  for (int i = 0; i < times; ++i) {
    us = std::min(us, milliseconds(ours));
    them = std::min(them, milliseconds(other));
  }
  return us / them;
}

double Measuring::residentMegabytes() {
  QFile file(u"/proc/self/status"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n'))
    if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
  return 0;
}

double Measuring::heapMegabytes() {
  const struct mallinfo2 heap = mallinfo2();
  return double(heap.uordblks + heap.hblkhd) / (1024 * 1024);
}

void Measuring::open(TMyConnection& connection) {
  const Account account;
  connection.Server = account.server;
  connection.Port = 3313;
  connection.Database = u"kvtk"_s;
  connection.Username = account.name;
  connection.Password = account.password;
  connection.Connect();
}

MYSQL* Measuring::bareConnection() {
  const Account account;
  MYSQL* handle = mysql_init(nullptr);
  mysql_options(handle, MYSQL_SET_CHARSET_NAME, "latin5");
  if (mysql_real_connect(handle, account.server.toUtf8().constData(), account.name.toLatin1().constData(),
                         account.password.toLatin1().constData(), "kvtk", 3313, nullptr, 0) == nullptr)
    qFatal("%s", mysql_error(handle));
  // As the program's own connection.
  if (mysql_query(handle, "SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED") != 0) qFatal("%s", mysql_error(handle));
  return handle;
}

MYSQL_RES* Measuring::bareResult(MYSQL* handle, const char* statement) {
  if (mysql_query(handle, statement) != 0) qFatal("%s", mysql_error(handle));
  return mysql_store_result(handle);
}
