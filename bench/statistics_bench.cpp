// kvtk-bench-statistics SIZE: the statistics of a customer with 500 slips among those that the server in KVTK_COMPUTER_NAME holds;
// SIZE names their number. Times are the fastest of the rounds.
//   statistics_open_ms_SIZE     from the call to the painted chart
//   statistics_serial_ms_SIZE   the same for a device with 100 slips

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/Unit14.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"
#include "extras/statistics.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;
const QString customer = u"ÖLÇÜM MÜŞTERİSİ"_s;
const QString serial = u"ÖLÇÜM 1"_s;

void run(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(statement);
  query.Execute();
}

/// Every two thousandth of a million, so that they lie apart; all of this year, in all statuses.
void makeSlips() {
  run(u"update teknikservis join (select TS_ID as ID, row_number() over (order by md5(TS_ID)) as PLACE from teknikservis) a on ID = TS_ID "
      u"set TS_MUSTERI = '%1', TS_C_SERINO = if(PLACE <= 100, '%2', TS_C_SERINO), TS_TARIH = curdate() - interval (PLACE % 20) day "
      u"where PLACE <= 500"_s.arg(customer, serial));
  run(u"analyze table teknikservis"_s);
}

double opened(TIstForm& form, const std::function<void()>& open) {
  double fastest = std::numeric_limits<double>::max();
  QWidget* chart = form.findChild<QAbstractScrollArea*>(u"chart"_s)->viewport();
  class Watch : public QObject {
   public:
    std::function<void()> afterPaint;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint && afterPaint) QTimer::singleShot(0, this, std::exchange(afterPaint, {}));
      return false;
    }
  } watch;
  chart->installEventFilter(&watch);
  for (int i = 0; i < rounds; ++i) {
    QElapsedTimer timer;
    watch.afterPaint = [&] {
      fastest = std::min(fastest, double(timer.nsecsElapsed()) / 1e6);
      form.done(0);
    };
    timer.start();
    open();
  }
  return fastest;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-statistics SIZE\n", stderr);
    return 2;
  }
  nameTimeZone();
  int programArguments = 1;
  QApplication application(programArguments, argv);
  applyLook(application);
  const QTemporaryDir folder;
  QDir::setCurrent(folder.path());
  const QString size = QString::fromLocal8Bit(argv[1]);
  fillPorts();
  TfKvb workspace;
  TDM dataModule;
  TLogin_Form login;
  Measuring::open(DM->MySQL);
  makeSlips();
  TIstForm form;
  Measuring::figure(u"statistics_open_ms_"_s + size, opened(form, [&] { form.GirisMusteri(customer); }), "ms");
  if (form.qSeri.valueAt(3, 0).toInteger() < 400) qFatal("not the slips of the customer");
  Measuring::figure(u"statistics_serial_ms_"_s + size, opened(form, [&] { form.GirisSeriNo(serial); }), "ms");
  return 0;
}
