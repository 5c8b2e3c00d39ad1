// One station of the soak: the whole program, at the end of a line of its own that may be cut.
#include "bench/soak/station.h"

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "bench/measuring.h"
#include "bench/slow_line.h"
#include "bench/soak/soak.h"
#include "comm/fEpostaUnit.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/text_edit.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QListView>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 databasePort = 3313;
constexpr int longestSaveMs = 30;
constexpr int restSeconds = 31;  ///< the toolkit keeps threads that have no work for thirty

struct Station {
  StationOrder order;
  std::unique_ptr<SlowLine> line;
  LineState state;
};

qint64 now() { return QDateTime::currentMSecsSinceEpoch(); }

int entriesOf(const QString& folder) { return int(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size()); }

int activeTimers() {
  int active = 0;
  const auto count = [&active](const QObject& root) {
    for (const QTimer* timer : root.findChildren<QTimer*>()) active += timer->isActive();
  };
  count(*qApp);
  for (const QWidget* window : QApplication::topLevelWidgets()) count(*window);
  return active;
}

/// What the program holds, standing at the empty workspace.
void measure() {
  QThread::sleep(restSeconds);
  Hands::run([] {
    Telling::line({u"holds"_s, QString::number(Measuring::residentMegabytes(), 'f', 2), QString::number(Measuring::heapMegabytes(), 'f', 2),
                   QString::number(entriesOf(u"/proc/self/fd"_s)), QString::number(activeTimers()),
                   QString::number(QApplication::allWidgets().size()), QString::number(entriesOf(u"/proc/self/task"_s))});
  });
}

void logIn(const Station& station) {
  const bool isIn = Hands::waitFor([] {
    if (DM->MySQL.Connected() && QThread::currentThread()->loopLevel() == 1) return true;
    auto* dialog = dialogInFront();
    auto* confirm = dialog != nullptr ? dialog->findChild<QPushButton*>(u"Tamam_Button"_s) : nullptr;
    if (confirm != nullptr) confirm->click();
    return false;
  });
  if (!isIn) throw NotReached("no login");
  Hands::run([&station] {
    QAbstractItemModel* switches = fParametreler->findChild<QListView*>(u"ParamList"_s)->model();
    for (const int row : {ParameterFiles::NotifyBySms, ParameterFiles::NotifyByMail, ParameterFiles::PreviewReceipt})
      switches->setData(switches->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    fEPOSTA->eSMTPName->setText(station.order.mailHost);
    fEPOSTA->eSMTPPORT->setText(QString::number(station.order.mailPort));
    fEPOSTA->eSMTPOWNER->setText(u"servis@torvane.example"_s);
    fEPOSTA->eSubject->setText(u"CİHAZINIZ HAZIR"_s);
  });
}

/// Until the time is over or the line is cut: in the middle of a save, or of whatever road the moment finds.
void work(Station& station) {
  Chance chance(station.order.seed);
  Roads roads(station.order.name, station.order.seed, station.state);
  qint64 cutAt = 0;
  if (station.order.cutAfterSeconds > 0) cutAt = now() + station.order.cutAfterSeconds * 1000 + chance.below(1000);
  std::unique_ptr<QThread> cutter(QThread::create([&] {
    if (cutAt == 0) return;
    while (now() < std::min(cutAt, station.order.endsAt)) QThread::msleep(1);
    const bool meetsSave = chance.below(3) > 0;
    while (meetsSave && !station.state.isBusy && now() < station.order.endsAt) QThread::usleep(100);
    if (meetsSave) QThread::usleep(ulong(chance.below(longestSaveMs * 1000)));
    if (now() >= station.order.endsAt) return;
    station.state.isCut = true;
    station.line->cut();
  }));
  cutter->start();
  const bool livesOn = station.order.cutAfterSeconds == 0;
  bool isMeasured = false;
  while (!station.state.isCut && now() < station.order.endsAt) {
    roads.goOne();
    if (!livesOn || isMeasured || !roads.hasGoneAll() || now() < station.order.measuresAt) continue;
    isMeasured = true;
    measure();
  }
  if (station.state.isCut)
    Telling::line({u"cut"_s});
  else if (isMeasured)
    measure();
  cutter->wait();
  Hands::start([] { fKvb->close(); });
}

}  // namespace

int runStation(int argc, char** argv, const StationOrder& order) {
  auto station = std::make_unique<Station>();
  station->order = order;
  station->line = std::make_unique<SlowLine>(order.line, order.server, databasePort, SlowLine::Width{0, 1e9});
  setDialogDriver(std::make_unique<Answers>(order.seed));
  QThread* worker = nullptr;
  const int result = runProgram(argc, argv, [&] {
    worker = QThread::create([&station] {
      try {
        logIn(*station);
        work(*station);
      } catch (const NotReached& error) {
        Telling::line({u"stuck"_s, QString::fromUtf8(error.what())});
        std::_Exit(1);
      }
    });
    worker->start();
  });
  worker->wait();
  delete worker;
  setDialogDriver(nullptr);
  Telling::line({u"ended"_s});
  return result;
}
