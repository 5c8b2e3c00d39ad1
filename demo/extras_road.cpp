#include "demo/extras_road.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "app/kvbankUnit.h"
#include "base/data/my_query.h"
#include "cards/customer_list.h"
#include "demo/screen_hands.h"
#include "extras/statistics.h"
#include "service/fservisfis_unit.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

void execute(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.setText(statement);
  query.Execute();
}

/// What others have taken in for the customer in the years before.
void addSlips() {
  execute(u"insert into teknikservis (TS_NO, TS_TARIH, TS_TURU, TS_MUSTERI, TS_C_SERINO) "
          u"select concat('I-', seq), curdate() - interval (seq div 24) year, elt(1 + seq mod 8, 'TESLİM EDİLDİ', 'TAMAMLANDI', "
          u"'FATURALANDI', 'TESLİM EDİLDİ', 'İADE EDİLDİ', 'ARIZA KABUL', 'PARÇA BEKLİYOR', 'TESLİM EDİLDİ'), 'ÇİĞDEM ÖZTÜRK', "
          u"if(seq mod 3 = 0, 'SR-1001', 'SR-2002') from seq_1_to_40"_s);
}

void lookAtCustomer(ScreenHands& hands) {
  hands.click(u"dxBarSubItem7"_s);
  hands.waitFor(u"menu of the cards"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  hands.press({u"Down"_s, u"Return"_s});
  hands.waitFor(u"customers"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
  hands.press({u"ctrl+f"_s, u"Tab"_s});
  hands.type(u"çiğ"_s);
  hands.waitFor(u"customer found"_s, [] { return fmusteriler->qCari.RecordCount() == 1; });
  hands.press({u"F10"_s});
  hands.waitFor(u"customer's statistics"_s, [] { return isInFront(u"ÇİĞDEM ÖZTÜRK İSTATİSTİK"_s); });
  hands.picture(u"istatistik"_s);
  const int year = hands.ask<int>([] { return IstForm->eYil->text().toInt(); });
  hands.type(QString::number(year - 1));
  hands.press({u"F5"_s});
  hands.waitFor(u"year before"_s, [] { return IstForm->eTOPLAM->text() == u"17"_s; });
  hands.picture(u"istatistik-onceki-yil"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"customers in front"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
  hands.press({u"Down"_s, u"Escape"_s});  // from the search row, whose own Escape empties the cell
  hands.waitFor(u"list closed"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
}

void lookAtDevice(ScreenHands& hands) {
  hands.click(u"dxBarLargeButton1"_s);
  hands.click(u"TS_C_SERINO"_s);
  hands.type(u"sr-1001"_s);
  hands.press({u"F4"_s});
  hands.waitFor(u"device's statistics"_s, [] { return isInFront(u"SR-1001 İSTATİSTİK"_s); });
  hands.picture(u"istatistik-seri-no"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"slip in front"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
  hands.press({u"F3"_s});
  hands.waitFor(u"slip closed"_s, [] { return fKvb->childWindows().isEmpty(); });
}

}  // namespace

void walkTheExtras(ScreenHands& hands) {
  hands.ask<bool>([] {
    addSlips();
    return true;
  });
  lookAtCustomer(hands);
  lookAtDevice(hands);
  hands.ask<bool>([] {
    execute(u"delete from teknikservis where TS_NO like 'I-%'"_s);
    return true;
  });
}
