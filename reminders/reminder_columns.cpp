#include "reminders/reminder_columns.h"

#include "base/data/value.h"
#include "base/date_text.h"
#include "cards/card_columns.h"
#include "contracts/contract_rules.h"
#include "service/slip_tables.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Shown {
  QString field;
  QString caption;
  int width;
};

/// The columns of a slip; these ones first, under captions of their own.
std::vector<GridColumn> slipColumns(const std::vector<Shown>& first) {
  std::vector<GridColumn> columns;
  std::vector<GridColumn> others = SlipTables::historyColumns();
  for (const Shown& each : first) {
    const auto known = std::find_if(others.begin(), others.end(), [&](const GridColumn& column) { return column.field == each.field; });
    GridColumn column = known != others.end() ? *known : GridColumn{};
    if (known != others.end()) others.erase(known);
    column.field = each.field;
    column.caption = each.caption;
    column.width = each.width;
    column.visible = column.offered = true;
    columns.push_back(std::move(column));
  }
  columns.back().stretches = true;
  for (GridColumn& column : others) {
    column.visible = false;
    columns.push_back(std::move(column));
  }
  return columns;
}

}  // namespace

std::vector<GridColumn> ReminderColumns::slipsOfDay() {
  return slipColumns({{u"TS_HATIRLATMA_TARIH"_s, u"TARİH"_s, 85},
                      {u"TS_HATIRLATMA_SAAT"_s, u"SAAT"_s, 70},
                      {u"TS_HATIRLATMA_NOTU"_s, u"NOT"_s, 210},
                      {u"TS_NO"_s, u"FİŞ NO"_s, 70},
                      {u"TS_C_SERINO"_s, u"SERİ NO"_s, 105},
                      {u"TS_C_AD"_s, u"CİHAZ ADI"_s, 160},
                      {u"TS_MUSTERI"_s, u"MÜŞTERİ ADI"_s, 160}});
}

std::vector<GridColumn> ReminderColumns::overdueSlips() {
  return slipColumns({{u"TS_TARIH"_s, u"TARİH"_s, 85},
                      {u"TS_SAAT"_s, u"SAAT"_s, 70},
                      {u"TS_NO"_s, u"FİŞ NO"_s, 70},
                      {u"TS_C_SERINO"_s, u"SERİ NO"_s, 100},
                      {u"TS_C_AD"_s, u"CİHAZ ADI"_s, 150},
                      {u"TS_MUSTERI"_s, u"MÜŞTERİ ADI"_s, 160},
                      {u"SON_TESLIM_TARIH"_s, u"SON TESLİM TARİHİ"_s, 130},
                      {u"GECIKME_GUN"_s, u"GECİKME (GÜN)"_s, 110}});
}

std::vector<GridColumn> ReminderColumns::dueContracts() {
  using namespace CardColumns;
  GridColumn day = shown(u"HTARIH"_s, u"TARİH"_s, 85);
  // The statement gives the asked day back as a text.
  day.lookUp = [](const Value& value) { return DateText::date(QDate::fromString(value.toText(), Qt::ISODate)); };
  GridColumn distance = shown(u"SOZ_MESAFE"_s, u"MESAFE"_s, 80);
  distance.displayFormat = u",0 KM;-,0 KM;0"_s;
  GridColumn price = hidden(u"SOZ_TUTAR"_s, u"SÖZLEŞME TUTAR"_s, 130);
  price.displayFormat = u",0.00"_s;
  GridColumn period = hidden(u"SOZ_HATIRLA_DONEM"_s, u"PERİYOD"_s, 90);
  for (const ContractPeriod& each : ContractRules::periods()) period.values.push_back({QString::number(each.code), each.caption});
  return {day,
          shown(u"SOZ_HATIRLA_SAAT"_s, u"SAAT"_s, 70),
          shown(u"SOZ_NO"_s, u"S. NO"_s, 70),
          shown(u"CA_AD"_s, u"MÜŞTERİ"_s, 220),
          distance,
          stretching(u"SOZ_HATIRLA_MESAJ"_s, u"MESAJ"_s, 240),
          hidden(u"SOZ_AD"_s, u"SÖZLEŞME ADI"_s, 220),
          hidden(u"SOZ_BAS_TARIH"_s, u"BAŞLAMA TARİH"_s, 115),
          hidden(u"SOZ_BIT_TARIH"_s, u"BİTİŞ TARİH"_s, 105),
          price,
          hidden(u"SOZ_HATIRLA_TARIH"_s, u"İLK HATIRLATMA"_s, 120),
          period,
          hidden(u"SOZ_STATU"_s, u"DURUM"_s, 80),
          hidden(u"SOZ_OZELKOD"_s, u"ÖZEL KOD"_s, 110),
          hidden(u"CA_NO"_s, u"CARİ NO"_s, 80),
          hidden(u"CA_UNVAN"_s, u"CARİ ÜNVAN"_s, 200),
          hidden(u"CA_ADRES"_s, u"MÜŞTERİ ADRES"_s, 260),
          hidden(u"CA_ILCE"_s, u"İLÇE / İL"_s, 150),
          hidden(u"CA_YETKILI"_s, u"YETKİLİ ADI"_s, 150),
          hidden(u"CA_CEP"_s, u"CEP TELEFON"_s, 110),
          hidden(u"CA_TEL"_s, u"TELEFON"_s, 110),
          hidden(u"CA_TEL2"_s, u"TELEFON 2"_s, 110),
          hidden(u"CA_EPOSTA"_s, u"E-POSTA"_s, 180),
          hidden(u"CA_OZELKOD1"_s, u"ÖZEL KOD 1"_s, 120),
          hidden(u"CA_OZELKOD2"_s, u"ÖZEL KOD 2"_s, 120)};
}
