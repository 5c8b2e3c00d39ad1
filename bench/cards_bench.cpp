// kvtk-bench-cards KVTK-SERVER: the customers' list on 20,000 customers, opened by the screen itself, and the import of the
// catalogue by the given command, both on the server in KVTK_COMPUTER_NAME. Times are the fastest of the rounds.
//   customers_open_20k_ms, customers_open_20k_vs_raw   from the call to the painted list, and against the bare fetch
//   customers_filter_keystroke_ms   a letter typed into the search row, to the painted rows that are left; without the pause
//                                   that waits for the next key; the slowest letter of a name
//   catalogue_import_10k_s   a file of 10,000 devices into an empty catalogue

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "base/data/my_query.h"
#include "base/platform/time_zone.h"
#include "app/Unit14.h"
#include "bench/measuring.h"
#include "cards/customer_list.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <mysql.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr int customersWanted = 20'000;
constexpr int devicesImported = 10'000;
constexpr double never = std::numeric_limits<double>::max();

double elapsedMs(const QElapsedTimer& timer) { return double(timer.nsecsElapsed()) / 1e6; }

/// Calls back once after the next paint of the list.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(Tfmusteriler& list) : rows_(list.grid()->view()->viewport()), list_(list) { qApp->installEventFilter(this); }
  std::function<void()> afterPaint;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched == rows_ && afterPaint && list_.qCari.Active())
      QTimer::singleShot(0, this, [then = std::exchange(afterPaint, {})] {
        if (then) then();
      });
    return false;
  }

 private:
  QWidget* rows_;
  Tfmusteriler& list_;
};

void makeCustomers() {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(
      u"insert into cari (CA_NO, CA_AD, CA_UNVAN, CA_ADRES, CA_ILCE, CA_YETKILI, CA_CEP, CA_TEL, CA_EPOSTA, CA_BAKIYE) "
      u"select concat('C', lpad(seq, 6, '0')), concat(elt(1 + seq % 7, 'AYŞE', 'MEHMET', 'IŞIL', 'İBRAHİM', 'ÖZLEM', 'ÇİĞDEM', 'ALİ'), ' ', "
      u"elt(1 + seq div 7 % 5, 'IŞIK', 'YILMAZ', 'ŞAHİN', 'ÇELİK', 'GÜNEŞ'), ' ', seq), if(seq % 4, null, 'ÖRNEK TİCARET LTD. ŞTİ.'), "
      u"concat('CUMHURİYET MAH. GÜL SOK. NO: ', seq), 'KADIKÖY / İSTANBUL', 'YETKİLİ KİŞİ', 5300000000 + seq, 2120000000 + seq, "
      u"concat('musteri', seq, '@ornek.com.tr'), 0 from seq_1_to_%1"_s.arg(customersWanted));
  query.Execute();
}

/// From the call to the painted list; then runs work and closes the list.
double opened(Tfmusteriler& list, PaintWatch& watch, const std::function<void()>& work = [] {}) {
  QElapsedTimer timer;
  double time = 0;
  watch.afterPaint = [&] {
    time = elapsedMs(timer);
    work();
    list.done(0);
  };
  timer.start();
  list.Giris();
  return time;
}

void compareOpening(Tfmusteriler& list, PaintWatch& watch) {
  MYSQL* bare = Measuring::bareConnection();
  double ours = never;
  double theirs = never;
  for (int i = 0; i < rounds; ++i) {  // by turns
    ours = std::min(ours, opened(list, watch));
    MYSQL_RES* rows = nullptr;
    theirs = std::min(theirs, Measuring::milliseconds([&] { rows = Measuring::bareResult(bare, "select * from cari"); }));
    mysql_free_result(rows);
  }
  mysql_close(bare);
  Measuring::figure(u"customers_open_20k_ms"_s, ours, "ms");
  Measuring::figure(u"customers_open_20k_vs_raw"_s, ours / theirs, "ratio");
}

void typeLetter(QChar letter) {
  QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
  QApplication::sendEvent(QApplication::focusWidget(), &press);
}

void measureSearch(Tfmusteriler& list, PaintWatch& watch) {
  const QString name = u"ayşe ışık"_s;
  std::vector<double> times(size_t(name.size()), never);
  DataGrid& grid = *list.grid();
  for (int i = 0; i < rounds; ++i) {
    opened(list, watch, [&] {
      list.activateWindow();
      grid.filterRow()->focusCell(2);
      for (qsizetype place = 0; place < name.size(); ++place) {
        double& fastest = times[size_t(place)];
        fastest = std::min(fastest, Measuring::milliseconds([&] {
                             typeLetter(name[place]);
                             Q_EMIT grid.filterRow()->changed();
                             grid.view()->viewport()->repaint();
                           }));
      }
      if (list.qCari.IsEmpty() || list.qCari.RecordCount() > customersWanted / 20) qFatal("the search did not narrow the list");
      list.reject();
    });
  }
  Measuring::figure(u"customers_filter_keystroke_ms"_s, *std::max_element(times.begin(), times.end()), "ms");
}

void measureImport(const QString& server) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(u"devices.csv"_s));
  if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
  file.write("CİHAZ ADI;CİHAZ TÜRÜ;CİHAZ MARKA;ÜRETİCİ KODU\n");
  for (int i = 0; i < devicesImported; ++i)
    file.write(u"çamaşır makinesi %1;\"beyaz \"\"eşya\"\"\";marka %2;UK%1\n"_s.arg(i).arg(i % 40).toUtf8());
  file.close();
  double fastest = never;
  for (int i = 0; i < 5; ++i) {
    DM->MySQL.execute("DELETE FROM cihaz");
    fastest = std::min(fastest, Measuring::milliseconds([&] {
                         if (QProcess::execute(server, {u"import-devices"_s, file.fileName()}) != 0) qFatal("the import failed");
                       }));
  }
  Measuring::figure(u"catalogue_import_10k_s"_s, fastest / 1000, "s");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-cards KVTK-SERVER\n", stderr);
    return 2;
  }
  nameTimeZone();
  int programArguments = 1;
  QApplication application(programArguments, argv);
  applyLook(application);
  TfKvb workspace;
  fillPorts();
  TDM dataModule;
  TLogin_Form login;
  Tfmusteriler customers;
  Measuring::open(DM->MySQL);
  makeCustomers();
  PaintWatch watch(customers);
  compareOpening(customers, watch);
  measureSearch(customers, watch);
  measureImport(QString::fromLocal8Bit(argv[1]));
  DM->MySQL.execute("DELETE FROM cari");
  DM->MySQL.execute("DELETE FROM cihaz");
  return 0;
}
