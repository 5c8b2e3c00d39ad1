// kvtk-bench-contracts SIZE: the contracts' list and the reminder window, worked by clicks on the screens themselves, on the
// slips that the server in KVTK_COMPUTER_NAME holds; SIZE names their number. Times are the fastest of the rounds.
//   contracts_open_5k_ms_SIZE   from the call to the painted list of 5,000 contracts of 20,000 customers
//   due_contracts_ms_SIZE       page "Bakım Sözleşmeleri" from the click to the painted rows, with 50,000 contracts
//   due_slips_ms_SIZE, overdue_ms_SIZE   the same for "Hatırlatmalar" and "Dış Servis"
//   due_contracts_SIZE, due_slips_SIZE, overdue_SIZE   how many rows that were

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/Unit14.h"
#include "base/data/my_query.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"
#include "bench/paint_watch.h"
#include "contracts/contract_list.h"
#include "reminders/reminder_window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;

void run(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(statement);
  query.Execute();
}

/// Leaves the newest 20,000 customers, all of which every opening of the list reads.
void keepCustomers() {
  run(u"delete from sozlesme"_s);
  run(u"delete from caricihaz"_s);
  run(u"delete cari from cari join (select max(CA_ID) - 20000 as OLDEST from cari) newest on CA_ID <= OLDEST"_s);
  run(u"analyze table cari"_s);
}

/// A third in their term, all periods by turns, as the sample data has them.
void makeContracts(int count) {
  run(u"delete from sozlesme"_s);
  run(u"insert into sozlesme (SOZ_NO, SOZ_AD, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_TUTAR, SOZ_MESAFE, SOZ_HATIRLA_TARIH, "
      u"SOZ_HATIRLA_SAAT, SOZ_HATIRLA_MESAJ, SOZ_HATIRLA_DONEM, SOZ_STATU) "
      u"select 1000 + seq, 'KLİMA BAKIM SÖZLEŞMESİ', (select max(CA_ID) from cari) - seq * 7 % 20000, BASLAMA, BASLAMA + interval 1 year, 1000 + seq % 20 * 250, seq * 3 % 90, "
      u"BASLAMA + interval 14 day, sec_to_time(32400 + 900 * (seq % 32)), 'PERİYODİK BAKIM', 1 + 2 * (seq % 15), if(YIL > 0, 'BİTTİ', 'AKTİF') "
      u"from (select seq, YIL, curdate() - interval (seq * 37 % 300) day - interval YIL * 366 day as BASLAMA "
      u"from (select seq, (seq div 15) % 3 as YIL from seq_1_to_%1) a) b"_s.arg(count));
  run(u"analyze table sozlesme"_s);
}

void measureList(const QString& size) {
  TfSozlesme contracts;
  PaintWatch watch(*contracts.grid());
  double fastest = std::numeric_limits<double>::max();
  for (int i = 0; i < rounds; ++i) {
    QElapsedTimer timer;
    watch.afterPaint = [&] {
      fastest = std::min(fastest, double(timer.nsecsElapsed()) / 1e6);
      contracts.done(0);
    };
    timer.start();
    contracts.Giris();
  }
  if (contracts.qSozlesme.RecordCount() != 5000) qFatal("not the 5,000 contracts");
  Measuring::figure(u"contracts_open_5k_ms_"_s + size, fastest, "ms");
}

/// From the click on a page's tab to its painted rows.
double clicked(TfHatirlaForm& window, int page, const DataGrid& grid) {
  const QTabBar* tabs = window.RzPageControl1->tabBar();
  return PaintWatch(grid).painted(
      [&] { QTest::mouseClick(const_cast<QTabBar*>(tabs), Qt::LeftButton, {}, tabs->tabRect(page).center()); });
}

void measureWindow(const QString& size) {
  TfHatirlaForm window;
  window.Show();
  const struct {
    int page;
    const DataGrid& grid;
    TMyQuery& query;
    QString name;
  } pages[] = {{1, *window.tvBakim, window.qBakim, u"due_contracts"_s},
               {2, *window.tvDisServis, window.qServis, u"overdue"_s},
               {0, *window.tvFis, window.qServis, u"due_slips"_s}};
  double fastest[3] = {1e9, 1e9, 1e9};
  int rows[3] = {};
  for (int i = 0; i < rounds; ++i)
    for (int page = 0; page < 3; ++page) {
      fastest[page] = std::min(fastest[page], clicked(window, pages[page].page, pages[page].grid));
      rows[page] = pages[page].query.RecordCount();
    }
  for (int page = 0; page < 3; ++page) {
    if (rows[page] == 0) qFatal("nothing is due");
    Measuring::figure(pages[page].name + u"_ms_"_s + size, fastest[page], "ms");
    Measuring::figure(pages[page].name + u'_' + size, rows[page], "rows");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-contracts SIZE\n", stderr);
    return 2;
  }
  nameTimeZone();
  int programArguments = 1;
  QApplication application(programArguments, argv);
  applyLook(application);
  const QTemporaryDir folder;  // layouts and places go there
  QDir::setCurrent(folder.path());
  const QString size = QString::fromLocal8Bit(argv[1]);
  fillPorts();
  TfKvb workspace;
  TDM dataModule;
  TLogin_Form login;
  Measuring::open(DM->MySQL);
  keepCustomers();
  makeContracts(5000);
  measureList(size);
  makeContracts(50'000);
  measureWindow(size);
  return 0;
}
