// kvtk-bench-line OWN: the program at the end of a line of 20 ms there and back and 10 Mbit/s each way, to the server in
// KVTK_COMPUTER_NAME with 100,000 slips; OWN is the loopback address at which the line begins. For each road three figures: the
// time until it is painted, how often the server was waited for, and the kilobytes that went over the line. Times are the fastest
// of the rounds, each behind one that is not counted.
//   line_start_ms            from "Tamam" of the login to the idle workspace with its reminder window, whose rows are painted
//   line_first_slip_ms       the first slip of the day, which reads 20,000 customers and 5,000 devices
//   line_open_slip_ms, line_new_slip_ms, line_save_slip_ms (until the window stands again)
//   line_open_picture_ms, line_save_picture_ms   with a picture of 2 MB
//   line_day_list_ms, line_customers_open_ms     the lists of the day's slips and of the customers

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "bench/measuring.h"
#include "bench/paint_watch.h"
#include "bench/sample_picture.h"
#include "bench/slow_line.h"
#include "cards/customer_list.h"
#include "reminders/reminder_window.h"
#include "service/fservisfis_unit.h"
#include "service/fservisfissecUnit.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/text_edit.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace Qt::StringLiterals;
using Measuring::figure;

namespace {

constexpr int rounds = 5;
constexpr int slipsOfTheDay = 40;
constexpr quint16 port = 3313;

std::unique_ptr<SlowLine> line;

void settle() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

/// The fastest round of a road; after puts things back as they were.
void measure(const QString& name, int times, const std::function<void()>& road, const std::function<void()>& after = settle) {
  double fastest = 1e9;
  int turns = 0;
  qint64 bytes = 0;
  for (int round = 0; round < times; ++round) {
    const int turnsBefore = line->turns();
    const qint64 bytesBefore = line->bytes();
    const double time = Measuring::milliseconds([&] {
      road();
      QApplication::processEvents();
    });
    if (times == 1 || round > 0) fastest = std::min(fastest, time);
    turns = line->turns() - turnsBefore;
    bytes = line->bytes() - bytesBefore;
    after();
  }
  figure(name + u"_ms"_s, fastest, "ms");
  figure(name + u"_turns"_s, turns, "turns");
  figure(name + u"_kb"_s, double(bytes) / 1024, "KB");
}

/// Past the line: makes the house as the figures want it.
void fill(TMyConnection& connection) {
  for (const char* statement :
       {"DELETE FROM caricihaz", "DELETE FROM sozlesme", "DELETE FROM cari", "DELETE FROM cihaz",
        "INSERT INTO cari (CA_NO, CA_AD, CA_UNVAN, CA_ADRES, CA_ILCE, CA_YETKILI, CA_CEP, CA_TEL, CA_EPOSTA) SELECT CONCAT('C', seq), "
        "CONCAT(ELT(1 + MOD(seq, 8), 'AYSE ', 'MEHMET ', 'FATMA ', 'ALI ', 'ZEYNEP ', 'HASAN ', 'OSMAN ', 'ELIF '), MD5(seq)), "
        "CONCAT('TICARET LTD ', seq), CONCAT('ATATURK CAD. NO: ', seq), 'KADIKOY', 'YETKILI', '05300000000', '02120000000', "
        "CONCAT('musteri', seq, '@ornek.com.tr') FROM seq_1_to_20000",
        "INSERT INTO cihaz (C_AD, C_TURU, C_MARKA) SELECT CONCAT('CIHAZ ', MD5(seq)), 'TUR', 'MARKA' FROM seq_1_to_5000",
        "UPDATE teknikservis SET TS_TARIH = TS_TARIH - INTERVAL 1 DAY WHERE TS_TARIH = CURDATE()"})
    connection.execute(statement);
  connection.execute("UPDATE teknikservis SET TS_TARIH = CURDATE() ORDER BY TS_ID DESC LIMIT " + QByteArray::number(slipsOfTheDay));
  connection.execute("DELETE FROM foto");
  TMyQuery query(connection, u"qBench"_s);
  query.SQL.setText(u"INSERT INTO foto (FT_TS_ID, FT_RESIM) SELECT MIN(TS_ID), :FT_RESIM FROM teknikservis"_s);
  query.ParamByName(u"FT_RESIM"_s) = samplePicture();
  query.Execute();
}

std::vector<qint64> firstSlips() {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(u"select TS_ID from teknikservis order by TS_ID limit 2"_s);
  query.Open();
  return {query.valueAt(0, 0).toInteger(), query.valueAt(1, 0).toInteger()};
}

void closeSlips() {
  for (QWidget* slip : fKvb->childWindows()) slip->parentWidget()->close();
  settle();
}

/// Opens a modal list, and closes it once its rows are painted.
void paintedList(QDialog& list, const std::function<void()>& open) {
  PaintWatch watch(*list.findChild<DataGrid*>());
  watch.afterPaint = [&] { list.reject(); };
  open();
}

void measureSave(const QString& name, qint64 id) {
  ports().openSlip(id);
  settle();
  int number = 0;
  measure(name, rounds, [&] {
    fServisFis->findChild<EditBox*>(u"TS_ACIKLAMA"_s)->setText(QString::number(++number));
    fServisFis->aKaydet->trigger();
    settle();
  });
  closeSlips();
}

void measureRoads() {
  const std::vector<qint64> slips = firstSlips();  // the first one has the picture
  measure(u"line_first_slip"_s, 1, [&] { ports().openSlip(slips[1]); }, closeSlips);
  measure(u"line_open_slip"_s, rounds, [&] { ports().openSlip(slips[1]); }, closeSlips);
  measure(u"line_new_slip"_s, rounds, [] { ports().newSlip(); }, closeSlips);
  measureSave(u"line_save_slip"_s, slips[1]);
  measure(u"line_open_picture"_s, rounds, [&] { ports().openSlip(slips[0]); }, closeSlips);
  measureSave(u"line_save_picture"_s, slips[0]);
  QAbstractItemModel* switches = fParametreler->findChild<QListView*>(u"ParamList"_s)->model();
  switches->setData(switches->index(ParameterFiles::ListSlipsOfTheDay, 0), Qt::Checked, Qt::CheckStateRole);
  measure(u"line_day_list"_s, rounds, [] {
    std::vector<QString> ids;
    paintedList(*fservisfisSec, [&ids] { fservisfisSec->Giris(ids); });
  });
  measure(u"line_customers_open"_s, rounds, [] { paintedList(*fmusteriler, [] { fmusteriler->Giris(); }); });
}

/// Presses "Tamam" of the login as soon as it is there, and goes on when the program is idle and the reminders are painted.
void logIn() {
  auto* wait = new QTimer(qApp);
  auto* pressed = new QElapsedTimer;
  auto* reminders = new PaintWatch(*fHatirlaForm->tvFis);
  reminders->afterPaint = [] {};  // taken away by the first paint
  QObject::connect(wait, &QTimer::timeout, wait, [wait, pressed, reminders] {
    if (!pressed->isValid()) {
      auto* dialog = QApplication::activeModalWidget();
      auto* confirm = dialog != nullptr ? dialog->findChild<QPushButton*>(u"Tamam_Button"_s) : nullptr;
      if (confirm == nullptr) return;
      pressed->start();
      confirm->click();
      return;
    }
    if (reminders->afterPaint || QThread::currentThread()->loopLevel() != 1) return;
    wait->stop();
    figure(u"line_start_ms"_s, double(pressed->nsecsElapsed()) / 1e6, "ms");
    figure(u"line_start_turns"_s, line->turns(), "turns");
    figure(u"line_start_kb"_s, double(line->bytes()) / 1024, "KB");
    QTimer::singleShot(0, qApp, [] {
      measureRoads();
      std::fflush(stdout);
      std::_Exit(0);
    });
  });
  wait->start(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-bench-line OWN\n", stderr);
    return 2;
  }
  {
    TMyConnection connection;
    Measuring::open(connection);
    fill(connection);
  }
  const QString own = QString::fromLocal8Bit(argv[1]);
  line = std::make_unique<SlowLine>(own, qEnvironmentVariable("KVTK_COMPUTER_NAME"), port, SlowLine::Width{});
  qputenv("KVTK_COMPUTER_NAME", own.toUtf8());
  int programArguments = 1;
  return runProgram(programArguments, argv, logIn);
}
