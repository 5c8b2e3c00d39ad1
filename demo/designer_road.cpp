#include "demo/designer_road.h"

#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "demo/finish_road.h"
#include "demo/screen_hands.h"
#include "extras/report_design.h"
#include "service/fservisfis_unit.h"
#include "toolkit/report/designer/report_designer.h"

#include <QApplication>
#include <QListView>

using namespace Qt::StringLiterals;

namespace {

bool designerIsInFront() { return QApplication::activeModalWidget() == fRaporTasarla && fRaporTasarla->frxDesigner1->isVisible(); }

/// From the drop-down of the slip's printing command: the entry that many keys down.
void chooseFromPrintMenu(ScreenHands& hands, int keys) {
  hands.click(u"aYazdir"_s);
  hands.waitFor(u"menu of printing"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  for (int key = 0; key < keys; ++key) hands.press({u"Down"_s});
  hands.press({u"Return"_s});
}

/// A dialog of the designer by the menu "Dosya": looked at and left.
void lookAtDialog(ScreenHands& hands, const QString& command, const QString& title, const QString& picture) {
  hands.press({u"alt+d"_s});
  chooseFromMenu(hands, command);
  hands.waitFor(title, [&] { return isInFront(title); });
  hands.pause(300);
  hands.picture(picture);
  hands.press({u"Escape"_s});
  hands.waitFor(u"designer after "_s + title, designerIsInFront);
}

}  // namespace

void DesignerRoad::changeReceipt(ScreenHands& hands) {
  chooseFromPrintMenu(hands, 2);
  hands.waitFor(u"designer"_s, designerIsInFront);
  hands.pause(800);
  hands.picture(u"makbuz-tasarimi"_s);
  ReportDesigner& designer = *fRaporTasarla->frxDesigner1;
  hands.ask<bool>([&] {
    designer.editor().select(designer.editor().page()->children().front().get());
    designer.canvas().setFocus();
    return true;
  });
  // The heading made higher, and a new text at its foot, by keys alone.
  for (int step = 0; step < 8; ++step) hands.press({u"shift+Down"_s});
  hands.press({u"m"_s, u"Return"_s});
  hands.waitFor(u"text in its place"_s, [&] { return designer.canvas().findChild<QWidget*>(u"textInPlace"_s) != nullptr; });
  hands.type(u"Servisimize hoş geldiniz"_s);
  hands.press({u"ctrl+Return"_s});
  hands.waitFor(u"text written"_s, [&] {
    return designer.editor().selectedObjects().size() == 1 && designer.editor().selection().front()->text(u"text") == u"Servisimize hoş geldiniz";
  });
  for (int step = 0; step < 27; ++step) hands.press({u"Down"_s});
  for (int step = 0; step < 20; ++step) hands.press({u"shift+Right"_s});
  hands.press({u"ctrl+b"_s});
  hands.picture(u"tasarimda-degisiklik"_s);
  hands.press({u"F5"_s});
  hands.waitFor(u"preview"_s, [] { return isInFront(u"Önizleme"_s); });
  hands.pause(400);
  hands.picture(u"tasarim-onizleme"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"designer again"_s, designerIsInFront);
  hands.press({u"ctrl+s"_s});
  hands.waitFor(u"template saved"_s, [&] { return !designer.editor().isChanged(); });
  lookAtDialog(hands, u"Önceki sürümler…"_s, u"Önceki Sürümler"_s, u"onceki-surumler"_s);
  lookAtDialog(hands, u"Sayfa düzeni…"_s, u"Sayfa Düzeni"_s, u"sayfa-duzeni"_s);
  lookAtDialog(hands, u"Sihirbaz: yeni etiket…"_s, u"Sihirbaz: Yeni Etiket"_s, u"etiket-sihirbazi"_s);
  hands.press({u"ctrl+F4"_s});
  hands.waitFor(u"designer closed"_s, [] { return QApplication::activeModalWidget() == nullptr; });
  hands.ask<bool>([] {
    QAbstractItemModel* switches = fParametreler->findChild<QListView*>(u"ParamList"_s)->model();
    return switches->setData(switches->index(ParameterFiles::PreviewReceipt, 0), Qt::Checked, Qt::CheckStateRole);
  });
  chooseFromPrintMenu(hands, 1);
  hands.waitFor(u"receipt on paper"_s, [] { return isInFront(u"Önizleme"_s); });
  hands.pause(400);
  hands.picture(u"degisen-makbuz"_s);
  const qsizetype printed = FinishRoad::printedJobs();
  hands.press({u"ctrl+p"_s});
  hands.waitFor(u"print dialog"_s, [] { return isInFront(u"Yazdır"_s); });
  hands.picture(u"makbuz-yazdir"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"changed receipt printed"_s, [&] { return FinishRoad::printedJobs() > printed; });
  hands.press({u"Escape"_s});
  hands.waitFor(u"receipt closed"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
}
