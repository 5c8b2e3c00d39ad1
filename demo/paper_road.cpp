#include "demo/paper_road.h"

#include "app/company_card.h"
#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "contracts/contract_list.h"
#include "demo/screen_hands.h"
#include "toolkit/report/preview/preview_window.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

bool workspaceIsInFront() { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; }

void lookAtPreview(ScreenHands& hands, const QString& name) {
  hands.waitFor(u"preview of "_s + name, [] { return qobject_cast<PreviewWindow*>(QApplication::activeModalWidget()) != nullptr; });
  ScreenHands::pause(500);
  hands.picture(name);
  hands.press({u"Escape"_s});
}

void askForPreview(ScreenHands& hands) {
  hands.click(u"dxBarSubItem1"_s);
  chooseFromMenu(hands, u"Parametreler"_s);
  hands.waitFor(u"parameters"_s, [] { return isInFront(u"Parametreler"_s); });
  for (int index = 1; index < ParameterFiles::PreviewReceipt; ++index) hands.press({u"Down"_s});
  hands.press({u"space"_s});
  hands.waitFor(u"a preview is asked for"_s, [] { return fParametreler->isChecked(ParameterFiles::PreviewReceipt); });
  for (int index = 1; index < ParameterFiles::PreviewReceipt; ++index) hands.press({u"Up"_s});  // where whoever comes next begins
  hands.press({u"Return"_s});
  hands.waitFor(u"parameters saved"_s, workspaceIsInFront);
}

}  // namespace

void PaperRoad::fillCompany(ScreenHands& hands) {
  hands.click(u"dxBarSubItem1"_s);
  chooseFromMenu(hands, u"Şirket Bilgileri"_s);
  hands.waitFor(u"company"_s, [] { return isInFront(u"Şirket Bilgileri"_s); });
  hands.click(u"SIRKET_ADI"_s);
  for (const QString& text : {u"torvane bilişim teknik servis"_s, u"atatürk bulvarı no: 48/3"_s, u"çankaya"_s, u"ankara"_s, u"0312 555 10 10"_s,
                              u"0312 555 10 11"_s, u"servis@torvane.example"_s, u"www.torvane.example"_s}) {
    hands.press({u"ctrl+a"_s});
    hands.type(text);
    hands.press({u"Return"_s});
  }
  hands.picture(u"sirket-bilgileri"_s);
  hands.click(u"Tamam_Button"_s);
  hands.waitFor(u"company saved"_s, workspaceIsInFront);
  askForPreview(hands);
}

void PaperRoad::lookAtReceipt(ScreenHands& hands, const QString& name) {
  hands.click(u"aYazdir"_s);
  chooseFromMenu(hands, u"Makbuz Baskı"_s);
  lookAtPreview(hands, name);
  hands.waitFor(u"slip after its receipt"_s, workspaceIsInFront);
}

void PaperRoad::lookAtLetter(ScreenHands& hands) {
  hands.click(u"contracts"_s);
  hands.waitFor(u"contracts with a letter"_s, [] { return isInFront(u"Bakım Sözleşme Takip"_s); });
  hands.press({u"Menu"_s});
  chooseFromMenu(hands, u"Sözleşme Yazdır"_s);
  lookAtPreview(hands, u"sozlesme-mektubu"_s);
  hands.waitFor(u"contracts after the letter"_s, [] { return isInFront(u"Bakım Sözleşme Takip"_s); });
  hands.press({u"Escape"_s});
  hands.waitFor(u"contracts closed after the letter"_s, workspaceIsInFront);
}
