#include "demo/finish_road.h"

#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "demo/paper_road.h"
#include "demo/screen_hands.h"
#include "demo/slip_list_road.h"
#include "service/fservisfis_unit.h"
#include "service/fservisfissecUnit.h"
#include "simulator/simulator.h"

#include <QApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int balloonMs = 2300;  ///< after which the balloon of a sent message is gone

bool workspaceIsInFront() { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; }

bool stands(const QString& column, const QString& text) { return fServisFis != nullptr && fServisFis->text(column) == text; }

void chooseStatus(ScreenHands& hands, const QString& status) {
  hands.click(u"TS_TURU"_s);
  hands.press({u"Escape"_s, u"Home"_s});
  for (int step = 0; step < 16 && !hands.ask<bool>([&] { return stands(u"TS_TURU"_s, status); }); ++step) hands.press({u"Down"_s});
  hands.waitFor(u"status "_s + status, [&] { return stands(u"TS_TURU"_s, status); });
}

/// Switches of the workstation, by the keyboard.
void turnOn(ScreenHands& hands, const std::vector<int>& switches) {
  hands.click(u"dxBarSubItem1"_s);
  chooseFromMenu(hands, u"Parametreler"_s);
  hands.waitFor(u"parameters"_s, [] { return isInFront(u"Parametreler"_s); });
  for (const int index : switches) {
    hands.press({u"Home"_s});
    for (int row = 0; row < index; ++row) hands.press({u"Down"_s});
    hands.press({u"space"_s});
    hands.waitFor(u"switch "_s + QString::number(index), [index] { return fParametreler->isChecked(index); });
  }
  hands.press({u"Return"_s});
  hands.waitFor(u"parameters saved"_s, workspaceIsInFront);
}

/// Output of a program that must end well.
QByteArray toolSays(const QString& program, const QStringList& arguments) {
  QProcess tool;
  tool.start(program, arguments);
  if (!tool.waitForFinished(120000) || tool.exitCode() != 0)
    throw StationMissed(program.toStdString() + ": " + tool.readAllStandardError().toStdString());
  return tool.readAllStandardOutput();
}

}  // namespace

qsizetype FinishRoad::printedJobs() { return toolSays(u"lpstat"_s, {u"-W"_s, u"completed"_s, u"-o"_s}).count("ETIKET"); }

void FinishRoad::printLabel(ScreenHands& hands) {
  const qsizetype before = printedJobs();
  hands.click(u"TS_C_SERINO"_s);
  hands.press({u"F5"_s});
  chooseFromMenu(hands, u"Barkod Yazdır"_s, u"barkod-menusu"_s);
  hands.waitFor(u"label on paper"_s, [&] { return printedJobs() > before; });
}

void FinishRoad::complete(ScreenHands& hands, const Simulator& simulator) {
  turnOn(hands, {ParameterFiles::NotifyByMail, ParameterFiles::ReceiptPerStatus});
  const size_t messages = simulator.requests().size();
  const size_t mails = simulator.mails().size();
  hands.click(u"TS_C_TEKNISYEN_NOT"_s);
  hands.type(u"toner ve drum değiştirildi, deneme baskısı alındı"_s);
  hands.click(u"TS_ISCILIK_TUTAR"_s);
  hands.press({u"ctrl+a"_s});
  hands.type(u"450"_s);
  hands.press({u"Return"_s});
  chooseStatus(hands, u"TAMAMLANDI"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"customer told that it is done"_s, [&] {
    return simulator.requests().size() == messages + 1 && simulator.mails().size() == mails + 1 && workspaceIsInFront();
  });
  if (simulator.mails().back().recipients != QList<QByteArray>{"OZTURK@TORVANE.EXAMPLE"}) throw StationMissed("the mail went elsewhere");
  hands.picture(u"is-bitti"_s);
  hands.pause(balloonMs);
  PaperRoad::lookAtReceipt(hands, u"servis-raporu"_s);
}

void FinishRoad::deliver(ScreenHands& hands) {
  chooseStatus(hands, u"TESLİM EDİLDİ"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"day of delivery"_s, [] { return !fServisFis->text(u"TS_TESLIM_TARIH"_s).isEmpty() && stands(u"TS_TURU"_s, u"TESLİM EDİLDİ"_s); });
  hands.picture(u"teslim-edildi"_s);
  hands.pause(balloonMs);
  PaperRoad::lookAtReceipt(hands, u"teslim-makbuzu"_s);
}

void FinishRoad::loseAndRestore(ScreenHands& hands) {
  const QString keeper = qEnvironmentVariable("KVTK_DEMO_SERVER");
  const QString copy = qEnvironmentVariable("KVTK_HOME") + u"/hafta.sql.gz"_s;
  toolSays(keeper, {u"backup"_s, copy});
  hands.press({u"F6"_s});
  hands.waitFor(u"question before deleting"_s, [] { return QApplication::activeModalWidget() != nullptr; });
  hands.press({u"Return"_s});
  hands.waitFor(u"slip lost"_s, [] { return fKvb->childWindows().isEmpty(); });
  const auto hasSlip = [](const TMyQuery& slips) {
    for (int row = 0; row < slips.RecordCount(); ++row)
      if (slips.valueAt(row, slips.fieldIndex(u"TS_C_SERINO"_s)).toText() == u"SN55012"_s) return true;
    return false;
  };
  SlipListRoad::openList(hands);
  if (hands.ask<bool>([&] { return hasSlip(fservisfisSec->qServis); })) throw StationMissed("the slip is still there");
  toolSays(keeper, {u"restore"_s, copy, u"--yes"_s});
  hands.press({u"F8"_s});
  hands.waitFor(u"slip brought back"_s, [&] { return hasSlip(fservisfisSec->qServis); });
  hands.picture(u"geri-yuklendi"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"list closed"_s, workspaceIsInFront);
}
