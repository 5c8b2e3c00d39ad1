// kvtk-bench FOLDER: starts the program several times as a process of its own and prints the medians of
//   start_to_login_ms      process start to the painted login form
//   login_to_workspace_ms  pressing "Tamam" to the idle workspace
//   workspace_rss_mb       resident memory then
//   new_slip_ms            command to the painted new slip
//   save_new_slip_roundtrips, save_new_slip_ms   with two lines
//   open_slip_ms           the saved slip, command to painted
//   denied_check_us        one command that an account has no right to, its entry in the log included
// FOLDER is the current folder of the started program.

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/program_paths.h"
#include "app/ports.h"
#include "app/rights.h"
#include "service/fservisfis_unit.h"
#include "toolkit/edits/edit_control.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 7;

qint64 nowNs() { return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

void figure(const char* name, double value, const char* unit) {
  std::printf("%s %.1f %s\n", name, value, unit);
  std::fflush(stdout);
}

double residentMegabytes() {
  QFile file(u"/proc/self/status"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n'))
    if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
  return 0;
}

QWidget* widgetNamed(const QString& name) {
  for (QWidget* widget : QApplication::allWidgets())
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

/// Calls back once the widget of that name has been painted for the first time.
class FirstPaint : public QObject {
 public:
  FirstPaint(QString name, std::function<void()> then) : QObject(qApp), name_(std::move(name)), then_(std::move(then)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!done_ && event->type() == QEvent::Paint && watched->objectName() == name_) {
      done_ = true;
      QTimer::singleShot(0, this, [this] { then_(); });
    }
    return false;
  }

 private:
  QString name_;
  std::function<void()> then_;
  bool done_ = false;
};

void set(QWidget* form, const char* column, const Value& value) {
  auto* control = dynamic_cast<EditControl*>(form->findChild<QWidget*>(QString::fromLatin1(column)));
  if (control == nullptr) std::exit(3);
  control->setEditValue(value);
}

void addLine(TMyQuery& lines, int number) {
  lines.Append();
  lines.FieldByName(u"MZ_SIRANO"_s).set(number);
  lines.FieldByName(u"MZ_PARCA_ADI"_s).set(u"ŞARJ SOKETİ"_s);
  lines.FieldByName(u"MZ_ADET"_s).set(1);
  lines.FieldByName(u"MZ_TUTAR"_s).set(125.5);
  lines.Post();
}

void measureDeniedCheck() {
  constexpr int checks = 1000;
  DM->MySQL.Username = u"BENCH"_s;
  QElapsedTimer timer;
  timer.start();
  for (int i = 0; i < checks; ++i)
    if (DM->Kullanici_Yetkileri(u"Servis Fişleri\\Sil"_s) != Right::Checked) std::exit(5);
  figure("denied_check_us", double(timer.nsecsElapsed()) / 1e3 / checks, "us");
  QFile::remove(logFileName());
}

void measureSlip() {
  QElapsedTimer timer;
  timer.start();
  ports().newSlip();
  qApp->processEvents();
  figure("new_slip_ms", double(timer.nsecsElapsed()) / 1e6, "ms");

  TfServisFis* slip = fServisFis;
  set(slip, "TS_MUSTERI", u"AYŞE IŞIK"_s);
  set(slip, "TS_C_AD", u"DİZÜSTÜ BİLGİSAYAR"_s);
  set(slip, "TS_C_SERINO", u"SN00471"_s);
  addLine(slip->qMalzeme, 1);
  addLine(slip->qMalzeme, 2);
  const quint64 before = DM->MySQL.roundTrips();
  timer.restart();
  slip->aKaydet->trigger();
  figure("save_new_slip_ms", double(timer.nsecsElapsed()) / 1e6, "ms");
  figure("save_new_slip_roundtrips", double(DM->MySQL.roundTrips() - before), "trips");

  TMyQuery last(DM->MySQL, u"qBench"_s);
  last.SQL.setText(u"select max(TS_ID) from teknikservis"_s);
  last.Open();
  const qint64 id = last.field(0).asInteger();
  if (id == 0) std::exit(4);
  timer.restart();
  ports().openSlip(id);
  qApp->processEvents();
  figure("open_slip_ms", double(timer.nsecsElapsed()) / 1e6, "ms");
  DM->MySQL.execute("DELETE FROM teknikservis WHERE TS_ID=" + QByteArray::number(id));
  measureDeniedCheck();
  std::fflush(stdout);
  std::_Exit(0);
}

/// The program with a probe in it; startNs is the moment at which the parent started this process.
int child(qint64 startNs, int argc, char** argv) {
  return runProgram(argc, argv, [startNs] {
    new FirstPaint(u"Tamam_Button"_s, [startNs] {
      figure("start_to_login_ms", double(nowNs() - startNs) / 1e6, "ms");
      const qint64 pressed = nowNs();
      auto* wait = new QTimer(qApp);
      QObject::connect(wait, &QTimer::timeout, wait, [wait, pressed] {
        // Idle at the outermost loop: the start sequence is through.
        if (!DM->MySQL.Connected() || QThread::currentThread()->loopLevel() != 1) return;
        wait->stop();
        figure("login_to_workspace_ms", double(nowNs() - pressed) / 1e6, "ms");
        figure("workspace_rss_mb", residentMegabytes(), "MB");
        QTimer::singleShot(0, qApp, measureSlip);
      });
      wait->start(1);
      qobject_cast<QPushButton*>(widgetNamed(u"Tamam_Button"_s))->click();
    });
  });
}

/// Runs the child again and again; the first run warms the disk cache and is left out.
int parent(const QString& program, const QString& folder) {
  QMap<QByteArray, std::vector<double>> values;
  QMap<QByteArray, QByteArray> units;
  for (int run = 0; run <= runs; ++run) {
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {u"--child"_s, QString::number(nowNs())});
    if (!process.waitForFinished(60000) || process.exitCode() != 0) return 1;
    if (run == 0) continue;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
      const auto words = line.split(' ');
      if (words.size() != 3) continue;
      values[words[0]].push_back(words[1].toDouble());
      units[words[0]] = words[2];
    }
  }
  for (auto row = values.begin(); row != values.end(); ++row) {
    std::sort(row->begin(), row->end());
    figure(row.key().constData(), row.value()[row->size() / 2], units[row.key()].constData());
  }
  return values.isEmpty() ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && QByteArrayView(argv[1]) == "--child") {
    const qint64 startNs = QByteArray(argv[2]).toLongLong();
    int programArguments = 1;
    return child(startNs, programArguments, argv);
  }
  if (argc != 2) {
    std::fputs("usage: kvtk-bench FOLDER\n", stderr);
    return 2;
  }
  QCoreApplication application(argc, argv);
  return parent(QCoreApplication::applicationFilePath(), QString::fromLocal8Bit(argv[1]));
}
