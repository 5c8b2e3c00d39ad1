// kvtk-bench-grid 100k|1m: figures of the data grid over the slips of the server in KVTK_COMPUTER_NAME, with the columns of
// the slips' list. Every time is the worst of its rounds and ends with the picture on the screen.

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "app/look.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"
#include "service/slip_tables.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/filter_cell.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/grid/xls_export.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using Measuring::figure;
using Measuring::milliseconds;

namespace {

constexpr int pageDowns = 200;
constexpr int keystrokes = 8;
constexpr int rounds = 5;
constexpr int settlingMs = 300;

/// Starts the time when a query has its rows, before its grid is told.
class RowsCome : private QueryListener {
 public:
  explicit RowsCome(TMyQuery& query) : query_(query) { query_.addListener(this); }
  ~RowsCome() override { query_.removeListener(this); }
  QElapsedTimer since;

 private:
  void queryReset() override { since.start(); }
  void rowChanged(int) override {}
  void rowInserted(int) override {}
  void rowRemoved(int) override {}
  void queryEnds() override {}

  TMyQuery& query_;
};

/// What is waiting to be painted is painted; what waits for an idle moment is not done.
void paint(DataGrid& grid) {
  grid.view()->viewport()->update();
  QCoreApplication::sendPostedEvents();
}

double worstPage(DataGrid& grid) {
  grid.setCurrentRow(0);
  QTest::qWait(settlingMs);  // the sums of the rows just opened are a figure of their own
  double worst = 0;
  for (int i = 0; i < pageDowns; ++i)
    worst = std::max(worst, milliseconds([&] {
                       QTest::keyClick(grid.view(), Qt::Key_PageDown);
                       paint(grid);
                     }));
  return worst;
}

/// Worst of several letters typed into the customer's search cell, without the pause that waits for the next one.
double worstKeystroke(DataGrid& grid) {
  const int column = grid.model()->columnOf(u"TS_MUSTERI"_s);
  QLineEdit* line = grid.filterRow()->cell(column)->line();
  double worst = 0;
  const QString words = u"IŞIKLAR "_s;
  for (int i = 0; i < keystrokes; ++i) {
    line->setFocus();
    worst = std::max(worst, milliseconds([&] {
                       QTest::sendKeyEvent(QTest::Click, line, Qt::Key_unknown, QString(words[i]), Qt::NoModifier);
                       QTest::keyClick(line, Qt::Key_Return);
                       paint(grid);
                     }));
  }
  grid.clearFilter();
  return worst;
}

/// Seconds that a spreadsheet of 60,000 slips takes.
void measureExport(TMyConnection& connection) {
  TMyQuery query(connection, u"qExport"_s);
  query.SQL.setText(u"select * from teknikservis limit 60000"_s);
  query.Open();
  DataGrid grid(query, SlipTables::browserColumns(), u"Fişler"_s);
  QTemporaryDir folder;
  const QString file = folder.filePath(u"ServisFisleri.xls"_s);
  figure(u"grid_export_xls_60k_s"_s, milliseconds([&] { exportXls(*grid.content(true), u"Servis Fişleri"_s, file); }) / 1000, "s");
}

}  // namespace

int main(int argc, char** argv) {
  nameTimeZone();
  QApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-grid 100k|1m\n", stderr);
    return 2;
  }
  applyLook(application);
  const QString size = QString::fromLocal8Bit(argv[1]);
  TMyConnection connection;
  Measuring::open(connection);
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(u"select * from teknikservis"_s);
  RowsCome rowsCome(query);
  query.Open();

  const double before = Measuring::residentMegabytes();
  DataGrid grid(query, SlipTables::browserColumns(), u"Fişler"_s);
  grid.setFilterRow(true);
  grid.setGroupArea(true);
  grid.resize(1180, 560);
  grid.show();
  if (!QTest::qWaitForWindowExposed(&grid)) qFatal("the window does not come up");
  paint(grid);
  figure(u"grid_rss_overhead_%1_mb"_s.arg(size), Measuring::residentMegabytes() - before, "MB");

  double firstPaint = 0;
  for (int i = 0; i < rounds; ++i) {
    query.Close();
    paint(grid);
    query.Open();
    paint(grid);
    firstPaint = std::max(firstPaint, double(rowsCome.since.nsecsElapsed()) / 1e6);
  }
  figure(u"grid_first_paint_%1_ms"_s.arg(size), firstPaint, "ms");
  figure(u"grid_footer_%1_ms"_s.arg(size), Measuring::best([&] {
           for (int column = 0; column < grid.model()->columnCount(); ++column) grid.model()->footerValue(column);
         }),
         "ms");
  figure(u"grid_scroll_frame_%1_ms"_s.arg(size), worstPage(grid), "ms");
  figure(u"grid_filter_keystroke_%1_ms"_s.arg(size), worstKeystroke(grid), "ms");
  double grouped = 0;
  for (int i = 0; i < rounds; ++i) {
    grid.clearGrouping();
    paint(grid);
    grouped = std::max(grouped, milliseconds([&] {
                         grid.setGrouping({u"TS_TURU"_s});
                         grid.setAllExpanded(true);
                         paint(grid);
                       }));
  }
  figure(u"grid_group_%1_ms"_s.arg(size), grouped, "ms");
  if (size == u"100k") measureExport(connection);
  return 0;
}
