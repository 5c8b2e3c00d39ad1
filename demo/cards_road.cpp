#include "demo/cards_road.h"

#include "base/data/my_query.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "cards/customer_devices.h"
#include "cards/customer_list.h"
#include "cards/firm_list.h"
#include "cards/service_types.h"
#include "demo/screen_hands.h"
#include "service/fservisfis_unit.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// Places in the menu "Kartlar".
enum Card { Customers = 1, Devices, Firms, ServiceTypes };

void openCard(ScreenHands& hands, Card card, const QString& title) {
  hands.click(u"dxBarSubItem7"_s);
  hands.waitFor(u"menu of the cards"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  if (card == Customers) hands.picture(u"kartlar-menusu"_s);
  for (int place = 0; place < card; ++place) hands.press({u"Down"_s});
  hands.press({u"Return"_s});
  hands.waitFor(title, [title] { return isInFront(title); });
}

void closeCard(ScreenHands& hands) {
  hands.press({u"Escape"_s});
  hands.waitFor(u"card list closed"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
}

void typeServiceTypes(ScreenHands& hands) {
  openCard(hands, ServiceTypes, u"Servis Tipleri"_s);
  hands.press({u"Insert"_s});
  for (const QString& type : {u"atölye"_s, u"yerinde servis"_s, u"kargo ile"_s}) {
    hands.type(type);
    hands.press({u"Return"_s});
  }
  hands.waitFor(u"three service types"_s, [] { return fServisTip->qServisTip.RecordCount() >= 3; });
  hands.press({u"Escape"_s});
  hands.picture(u"servis-tipleri"_s);
  closeCard(hands);
}

void addFirm(ScreenHands& hands) {
  openCard(hands, Firms, u"Dış Servisler Listesi"_s);
  hands.press({u"F3"_s});
  hands.waitFor(u"firm's card"_s, [] { return isInFront(u"Dış Servis"_s); });
  for (const QString& text : {u"güneş elektronik"_s, u"sanayi sitesi 12. sokak"_s, u"şişli / istanbul"_s, u"ışıl hanım"_s, u"02124000001"_s}) {
    hands.type(text);
    hands.press({u"Return"_s});
  }
  hands.picture(u"dis-servis-karti"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"firm saved"_s, [] { return isInFront(u"Dış Servisler Listesi"_s) && fDisServisler->qDisServis.state() == QueryState::Browse; });
  hands.picture(u"dis-servisler"_s);
  closeCard(hands);
}

/// What the administrator has imported.
void fillCatalogue() {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.setText(
      u"insert into cihaz (C_AD, C_TURU, C_MARKA) values ('DİZÜSTÜ BİLGİSAYAR', 'BİLGİSAYAR', 'TX-500'), "
      u"('LAZER YAZICI', 'YAZICI', 'LP-1020'), ('ÇAMAŞIR MAKİNESİ', 'BEYAZ EŞYA', 'CM-9'), ('YAZARKASA', 'KASA', 'YK-300')"_s);
  query.Execute();
}

void lookAtCatalogue(ScreenHands& hands) {
  hands.ask<bool>([] {
    fillCatalogue();
    return true;
  });
  openCard(hands, Devices, u"Cihaz Listesi"_s);
  hands.picture(u"cihaz-listesi"_s);
  closeCard(hands);
}

void addCustomer(ScreenHands& hands, const QStringList& texts) {
  const int before = hands.ask<int>([] { return fmusteriler->qCari.RecordCount(); });
  hands.click(u"aEkle"_s);
  hands.waitFor(u"customer's card"_s, [] { return isInFront(u"Cari Hesap"_s); });
  for (const QString& text : texts) {
    hands.type(text);
    hands.press({u"Return"_s});
  }
  if (before == 0) hands.picture(u"musteri-karti"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"customer saved"_s, [before] { return isInFront(u"Müşteri Listesi"_s) && fmusteriler->qCari.RecordCount() == before + 1; });
}

void addCustomers(ScreenHands& hands) {
  addCustomer(hands, {u"çiğdem öztürk"_s, u"öztürk ticaret ltd. şti."_s, u"c001"_s, u"moda caddesi 12"_s, u"kadıköy / istanbul"_s,
                      u"çiğdem öztürk"_s, u"02161234567"_s, u""_s, u"05321234567"_s, u"ozturk@torvane.example"_s});
  addCustomer(hands, {u"hasan yılmaz"_s, u""_s, u"c002"_s, u"gül sokak 7"_s, u"konak / izmir"_s, u"hasan yılmaz"_s, u"02321234567"_s});
  addCustomer(hands, {u"ışıl kaya"_s, u""_s, u"c003"_s, u"inönü bulvarı 44"_s, u"nilüfer / bursa"_s, u"ışıl kaya"_s, u"02241234567"_s});
  hands.picture(u"musteri-listesi"_s);
}

/// Finds a customer by the search row and types a device of his.
void addDevice(ScreenHands& hands) {
  hands.press({u"ctrl+f"_s, u"Tab"_s});
  hands.type(u"çiğ"_s);
  hands.waitFor(u"customer found"_s, [] { return fmusteriler->qCari.RecordCount() == 1; });
  hands.picture(u"musteri-arama"_s);
  hands.click(u"aCihaz"_s);
  hands.waitFor(u"customer's devices"_s, [] { return isInFront(u"Müşteri Cihazları"_s); });
  hands.press({u"Insert"_s});
  for (const QString& text : {u"dizüstü bilgisayar"_s, u"sr-1001"_s}) {
    hands.type(text);
    hands.press({u"Return"_s});
  }
  hands.waitFor(u"device written"_s, [] { return fMusteriCihaz->qmCihaz.RecordCount() >= 1; });
  hands.press({u"Escape"_s});
  hands.picture(u"musteri-cihazlari"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"customers in front"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
}

void previewCustomers(ScreenHands& hands) {
  hands.press({u"ctrl+shift+c"_s, u"F9"_s});
  hands.waitFor(u"print preview"_s, [] { return isInFront(u"Önizleme"_s); });
  hands.picture(u"baski-onizleme"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"customers in front"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
}

void copyIntoSlip(ScreenHands& hands) {
  hands.click(u"dxBarLargeButton1"_s);
  hands.click(u"TS_C_RAFNO"_s);
  hands.type(u"sr-1001"_s);
  hands.press({u"F5"_s});
  hands.waitFor(u"customer copied"_s, [] { return fServisFis != nullptr && fServisFis->text(u"TS_MUSTERI"_s) == u"ÇİĞDEM ÖZTÜRK"_s; });
  hands.picture(u"seri-numarasindan-gelen-kart"_s);
  hands.press({u"F3"_s});
  hands.waitFor(u"slip closed"_s, [] { return fKvb->childWindows().isEmpty(); });
}

}  // namespace

void walkTheCards(ScreenHands& hands) {
  typeServiceTypes(hands);
  addFirm(hands);
  lookAtCatalogue(hands);
  openCard(hands, Customers, u"Müşteri Listesi"_s);
  addCustomers(hands);
  addDevice(hands);
  previewCustomers(hands);
  closeCard(hands);
  copyIntoSlip(hands);
}
