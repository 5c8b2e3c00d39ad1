#include "demo/slip_list_road.h"

#include "base/data/my_query.h"
#include "app/dmUnit.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "app/parameters.h"
#include "demo/screen_hands.h"
#include "service/fservisfissecUnit.h"
#include "service/slip_lists.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int slipsOfToday = 9;
constexpr int olderSlips = 60;
/// Columns that the list shows before that of the customer.
constexpr int columnsBeforeCustomer = 6;

void addSlip(int number, const QString& customer, const QString& device) {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.Add(u"insert into teknikservis (TS_NO, TS_TARIH, TS_TURU, TS_MUSTERI, TS_YETKILI, TS_C_AD, TS_C_SERINO, TS_TUTAR, TS_MALIYET)"_s);
  query.SQL.Add(u"values (:NO, :TARIH, :TURU, :MUSTERI, :MUSTERI, :AD, :SERINO, :TUTAR, :MALIYET)"_s);
  query.ParamByName(u"NO"_s) = QString::number(number);
  query.ParamByName(u"TARIH"_s) = environment().today().addDays(number <= olderSlips ? number - olderSlips - 1 : 0);
  query.ParamByName(u"TURU"_s) = SlipLists::statuses()[number % SlipLists::statuses().size()];
  query.ParamByName(u"MUSTERI"_s) = customer;
  query.ParamByName(u"AD"_s) = device;
  query.ParamByName(u"SERINO"_s) = u"SN%1"_s.arg(10007 * number);
  query.ParamByName(u"TUTAR"_s) = 100.0 + 12.5 * number;
  query.ParamByName(u"MALIYET"_s) = 3.0 * number;
  query.Execute();
}

}  // namespace

void SlipListRoad::addSlipsOfOthers(ScreenHands& hands) {
  const QStringList customers{u"HASAN YILMAZ"_s, u"ÇİĞDEM ÖZTÜRK"_s, u"IŞIL KAYA"_s, u"ŞÜKRÜ DEMİR"_s};
  const QStringList devices{u"CEP TELEFONU"_s, u"LAZER YAZICI"_s, u"ÇAMAŞIR MAKİNESİ"_s};
  hands.ask<bool>([&] {
    for (int number = 1; number <= olderSlips + slipsOfToday; ++number)
      addSlip(number, customers[number % customers.size()], devices[number % devices.size()]);
    return true;
  });
}

void SlipListRoad::askForTheDaysList(ScreenHands& hands) {
  hands.click(u"dxBarSubItem1"_s);
  hands.waitFor(u"menu of the settings"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  hands.press({u"Down"_s, u"Down"_s, u"Return"_s});
  hands.waitFor(u"parameters"_s, [] { return isInFront(u"Parametreler"_s); });
  for (int index = 1; index < ParameterFiles::ListSlipsOfTheDay; ++index) hands.press({u"Down"_s});
  hands.press({u"space"_s});
  hands.waitFor(u"the day's list is asked for"_s, [] { return fParametreler->isChecked(ParameterFiles::ListSlipsOfTheDay); });
  hands.picture(u"parametreler"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"parameters saved"_s, [] { return QApplication::activeModalWidget() == nullptr; });
}

void SlipListRoad::openList(ScreenHands& hands) {
  hands.click(u"dxBarLargeButton2"_s);
  hands.waitFor(u"slip list"_s, [] { return isInFront(u"Servis Fişleri"_s); });
}

void SlipListRoad::openSlipOf(ScreenHands& hands, const QString& customer) {
  hands.waitFor(u"slips of today"_s, [] { return fservisfisSec->qServis.RecordCount() == slipsOfToday + 1; });
  hands.picture(u"gunun-fisleri"_s);
  hands.press({u"ctrl+f"_s});
  for (int column = 0; column < columnsBeforeCustomer; ++column) hands.press({u"Tab"_s});
  hands.type(customer);
  hands.waitFor(u"slip found"_s, [] { return fservisfisSec->qServis.RecordCount() == 1; });
  hands.picture(u"fis-bulundu"_s);
  hands.press({u"Return"_s, u"Return"_s});
  hands.waitFor(u"list closed"_s, [] { return QApplication::activeModalWidget() == nullptr; });
}
