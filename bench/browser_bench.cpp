// kvtk-bench-browser 100k|1m: the list of slips, opened by the screen itself on the slips of the server in
// KVTK_COMPUTER_NAME. Times go from the call to the painted list and are the fastest of the rounds.
//   browser_day_open_ms_100k, browser_day_open_ms_1m   with only the slips of today
//   browser_all_open_100k_ms, browser_all_open_100k_vs_raw   all slips, and against the bare fetch of the same rows
//   browser_sort_no_100k_ms   sorted by number, from the command to the painted list

#include "app/application.h"
#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "base/platform/time_zone.h"
#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "bench/measuring.h"
#include "service/fservisfissecUnit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QTemporaryDir>
#include <QTimer>

#include <mysql.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 7;
constexpr int slipsOfTheDay = 40;

double elapsedMs(const QElapsedTimer& timer) { return double(timer.nsecsElapsed()) / 1e6; }

/// Calls back after each paint of the list while it holds rows.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(TfservisfisSec& browser) : browser_(browser) { qApp->installEventFilter(this); }
  std::function<void()> afterPaint;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && afterPaint && isListViewport(watched) && !browser_.qServis.IsEmpty())
      QTimer::singleShot(0, this, [this, then = std::exchange(afterPaint, {})] {
        if (then) then();
      });
    return false;
  }

 private:
  bool isListViewport(QObject* watched) const {
    return watched == browser_.findChild<DataGrid*>()->view()->viewport();
  }
  TfservisfisSec& browser_;
};

/// From the call to the painted list; then runs work, and closes the list. Gives milliseconds.
double openedAfter(TfservisfisSec& browser, PaintWatch& watch, const std::function<void(std::function<void()>)>& work) {
  QElapsedTimer timer;
  double time = 0;
  watch.afterPaint = [&] {
    time = elapsedMs(timer);
    work([&browser] { browser.reject(); });
  };
  timer.start();
  std::vector<QString> ids;
  browser.Giris(ids);
  return time;
}

double opened(TfservisfisSec& browser, PaintWatch& watch) {
  return openedAfter(browser, watch, [](const std::function<void()>& close) { close(); });
}

double sorted(TfservisfisSec& browser, PaintWatch& watch) {
  double time = 0;
  openedAfter(browser, watch, [&](const std::function<void()>& close) {
    QElapsedTimer timer;
    timer.start();
    watch.afterPaint = [&time, timer, close] {
      time = elapsedMs(timer);
      close();
    };
    browser.findChild<DataGrid*>()->setOrder({{u"TS_NO"_s, false}});
  });
  return time;
}

double bareFetch(MYSQL* handle) {
  MYSQL_RES* rows = nullptr;
  const double time = Measuring::milliseconds([&] { rows = Measuring::bareResult(handle, "select * from teknikservis"); });
  mysql_free_result(rows);
  return time;
}

/// Some of the slips are today's.
void makeSlipsOfTheDay() {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(u"update teknikservis set TS_TARIH = :TODAY order by TS_ID limit %1"_s.arg(slipsOfTheDay));
  query.ParamByName(u"TODAY"_s) = environment().today();
  query.Execute();
}

template <class Measure>
double best(Measure measure) {
  double fastest = std::numeric_limits<double>::max();
  for (int i = 0; i < rounds; ++i) fastest = std::min(fastest, measure());
  return fastest;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-browser 100k|1m\n", stderr);
    return 2;
  }
  nameTimeZone();
  int programArguments = 1;
  QApplication application(programArguments, argv);
  applyLook(application);
  TfKvb workspace;
  // A kept layout, with its sorting, must not come from an earlier run.
  const QTemporaryDir folder;
  QuendUtil->programFolder = folder.path() + u'/';
  fillPorts();
  TDM dataModule;
  TfParametreler parameters;
  TfservisfisSec browser;
  TLogin_Form login;
  Measuring::open(DM->MySQL);
  makeSlipsOfTheDay();
  PaintWatch watch(browser);

  QAbstractItemModel* switches = parameters.findChild<QListView*>(u"ParamList"_s)->model();
  const auto listSlipsOfTheDay = [&](Qt::CheckState state) {
    switches->setData(switches->index(ParameterFiles::ListSlipsOfTheDay, 0), state, Qt::CheckStateRole);
  };
  listSlipsOfTheDay(Qt::Checked);
  Measuring::figure(u"browser_day_open_ms_"_s + QString::fromLatin1(argv[1]), best([&] { return opened(browser, watch); }), "ms");
  if (QByteArrayView(argv[1]) != "100k") return 0;

  listSlipsOfTheDay(Qt::Unchecked);
  MYSQL* bare = Measuring::bareConnection();
  double ours = std::numeric_limits<double>::max();
  double theirs = ours;
  for (int i = 0; i < rounds; ++i) {  // by turns
    ours = std::min(ours, opened(browser, watch));
    theirs = std::min(theirs, bareFetch(bare));
  }
  mysql_close(bare);
  Measuring::figure(u"browser_all_open_100k_ms"_s, ours, "ms");
  Measuring::figure(u"browser_all_open_100k_vs_raw"_s, ours / theirs, "ratio");
  Measuring::figure(u"browser_sort_no_100k_ms"_s, best([&] { return sorted(browser, watch); }), "ms");
  return 0;
}
