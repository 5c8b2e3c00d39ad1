#include "service/slip_tables.h"

#include "service/slip_lists.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum class Showing { Never, Hidden, Shown };

struct SlipColumn {
  QString field;
  QString caption;
  int width;
  Showing showing;
};

const std::vector<SlipColumn>& slipColumnTable() {
  using enum Showing;
  static const std::vector<SlipColumn> table{
      {u"TS_ID"_s, u"FİŞ ID"_s, 100, Never},
      {u"TS_NO"_s, u"FİŞ NO"_s, 75, Shown},
      {u"TS_TARIH"_s, u"FİŞ TARİH"_s, 90, Shown},
      {u"TS_SAAT"_s, u"SAAT"_s, 70, Hidden},
      {u"TS_TESLIM_TARIH"_s, u"TESLİM TARİH"_s, 100, Hidden},
      {u"TS_TURU"_s, u"FİŞ TÜRÜ"_s, 210, Shown},
      {u"TS_SERVIS_TIP"_s, u"SERVİS TİPİ"_s, 120, Hidden},
      {u"TS_HIZMET_TIP"_s, u"GARANTİ DURUM"_s, 120, Hidden},
      {u"TS_ACIKLAMA"_s, u"FİŞ AÇIKLAMA"_s, 180, Hidden},
      {u"TS_FATURANO"_s, u"BELGE NO"_s, 100, Hidden},
      {u"TS_OZELKOD"_s, u"ÖZEL KODU"_s, 100, Hidden},
      {u"TS_ADRES"_s, u"ADRES"_s, 200, Hidden},
      {u"TS_ILCE"_s, u"İLÇE"_s, 130, Hidden},
      {u"TS_YETKILI"_s, u"YETKİLİ ADI"_s, 125, Shown},
      {u"TS_TEL"_s, u"TELEFON"_s, 110, Hidden},
      {u"TS_TEL2"_s, u"TELEFON 2"_s, 110, Hidden},
      {u"TS_CEP"_s, u"CEP TELEFON"_s, 110, Hidden},
      {u"TS_EPOSTA"_s, u"E-POSTA"_s, 150, Hidden},
      {u"TS_C_SERINO"_s, u"DIŞ SERİ NO"_s, 115, Shown},
      {u"TS_C_AD"_s, u"CİHAZ TANIMI"_s, 180, Shown},
      {u"TS_C_MARKA"_s, u"DIŞ MODEL NO"_s, 130, Hidden},
      {u"TS_C_TURU"_s, u"İÇ MODEL NO"_s, 130, Hidden},
      {u"TS_C_RAFNO"_s, u"İÇ SERİ NO"_s, 130, Hidden},
      {u"TS_TEKNISYEN"_s, u"TEKNİSYEN"_s, 130, Hidden},
      {u"TS_RANDEVU"_s, u"RANDEVU TARİH"_s, 110, Hidden},
      {u"TS_C_EKPARCA"_s, u"EK PARÇALAR"_s, 180, Hidden},
      {u"TS_C_SIKAYET"_s, u"ŞİKAYETLER"_s, 220, Hidden},
      {u"TS_C_TEKNISYEN_NOT"_s, u"TEKNİSYEN NOTLARI"_s, 220, Hidden},
      {u"TS_C_GARBASTAR"_s, u"GAR. BAŞ. TARİH"_s, 120, Hidden},
      {u"TS_C_GARBITTAR"_s, u"GAR. BİT. TARİH"_s, 120, Hidden},
      {u"TS_C_SMS"_s, u"SMS"_s, 60, Hidden},
      {u"TS_MUSTERI"_s, u"MÜŞTERİ ADI"_s, 180, Shown},
      {u"TS_SERVIS_TUTAR"_s, u"SERVİS TUTAR"_s, 110, Hidden},
      {u"TS_ISCILIK_TUTAR"_s, u"İŞÇİLİK TUTAR"_s, 110, Hidden},
      {u"TS_PARCA_TUTAR"_s, u"PARÇA TUTAR"_s, 110, Hidden},
      {u"TS_TUTAR"_s, u"TUTAR"_s, 100, Shown},
      {u"TS_ODEME_SEKLI"_s, u"ÖDEME ŞEKLİ"_s, 100, Hidden},
      {u"TS_DISSERVIS"_s, u"DIŞ SERVİS"_s, 150, Hidden},
      {u"TS_DISSERVIS_CIKIS"_s, u"DIŞ SER. ÇIK. TARİH"_s, 140, Hidden},
      {u"TS_DISSERVIS_GIRIS"_s, u"DIŞ SER. GİR. TARİH"_s, 140, Hidden},
      {u"TS_DISSERVIS_TESLIM_SURE"_s, u"DIŞ SER. TESLİM SÜRESİ"_s, 160, Hidden},
      {u"TS_DISSERVIS_BILGI"_s, u"DIŞ SERVİS NOTU"_s, 180, Hidden},
      {u"TS_HATIRLATMA_TARIH"_s, u"HATIRLATMA TARİH"_s, 130, Hidden},
      {u"TS_HATIRLATMA_SAAT"_s, u"HATIRLATMA SAAT"_s, 130, Hidden},
      {u"TS_HATIRLATMA_NOTU"_s, u"HATIRLATMA NOTU"_s, 200, Hidden},
      {u"TS_HATIRLATMA_DONEM"_s, u"HATIRLATMA DÖNEM"_s, 130, Hidden},
      {u"TS_STAMP"_s, u"Zaman Damgası"_s, 150, Never},
      {u"TS_USER"_s, u"KULLANICI ADI"_s, 110, Hidden},
      {u"TS_USER_TIME"_s, u"KUL. İŞLEM TARİH"_s, 150, Hidden},
      {u"TS_MALIYET"_s, u"MALİYET TUTAR"_s, 120, Shown}};
  return table;
}

std::vector<GridListValue> listOf(const QStringList& texts) {
  std::vector<GridListValue> values;
  for (const QString& text : texts) values.push_back({text, text});
  return values;
}

GridColumn& columnOf(std::vector<GridColumn>& columns, const QString& field) {
  return *std::find_if(columns.begin(), columns.end(), [&](const GridColumn& column) { return column.field == field; });
}

const QString& amountFormat() {
  static const QString format = u",0.00;-,0.00"_s;
  return format;
}

std::vector<GridColumn> slipGridColumns(const QStringList& statuses, const QStringList& warrantyStates) {
  std::vector<GridColumn> columns;
  for (const SlipColumn& each : slipColumnTable()) {
    GridColumn column;
    column.field = each.field;
    column.caption = each.caption;
    column.width = each.width;
    column.visible = each.showing == Showing::Shown;
    column.offered = each.showing != Showing::Never;
    columns.push_back(std::move(column));
  }
  for (const QString& amount : {u"TS_SERVIS_TUTAR"_s, u"TS_ISCILIK_TUTAR"_s, u"TS_PARCA_TUTAR"_s, u"TS_TUTAR"_s, u"TS_MALIYET"_s})
    columnOf(columns, amount).displayFormat = amountFormat();
  columnOf(columns, u"TS_TURU"_s).values = listOf(statuses);
  columnOf(columns, u"TS_HIZMET_TIP"_s).values = listOf(warrantyStates);
  return columns;
}

}  // namespace

namespace SlipTables {

std::vector<GridColumn> browserColumns() {
  std::vector<GridColumn> columns = slipGridColumns(SlipLists::statuses(), SlipLists::browserWarrantyStates());
  GridColumn& number = columnOf(columns, u"TS_NO"_s);
  number.summary = number.groupSummary = GridSummary::Count;
  number.summaryFormat = number.groupSummaryFormat = u",0 Kayıt"_s;
  GridColumn& total = columnOf(columns, u"TS_TUTAR"_s);
  total.summary = total.groupSummary = GridSummary::Sum;
  total.summaryFormat = amountFormat();
  total.summaryName = u"Toplam"_s;
  total.groupSummaryFormat = u",0.00 TL;-,0.00 TL"_s;
  GridColumn& cost = columnOf(columns, u"TS_MALIYET"_s);
  cost.summary = GridSummary::Sum;
  cost.summaryFormat = amountFormat();
  cost.summaryName = u"Maliyet"_s;
  return columns;
}

std::vector<GridColumn> historyColumns() {
  return slipGridColumns(SlipLists::historyStatuses(), SlipLists::browserWarrantyStates());
}

std::vector<GridColumn> lineColumns() {
  const auto summed = [](const QString& field, const QString& caption, const QString& format) {
    return GridColumn{.field = field, .caption = caption, .width = 130, .displayFormat = format, .summary = GridSummary::Sum, .summaryFormat = format};
  };
  return {{.field = u"MZ_ID"_s, .visible = false, .offered = false},
          {.field = u"TS_NO_REF"_s, .visible = false, .offered = false},
          {.field = u"MZ_SIRANO"_s, .caption = u"NO"_s, .width = 60},
          {.field = u"MZ_PARCA_ADI"_s, .caption = u"PARÇA ADI"_s, .width = 420, .stretches = true},
          summed(u"MZ_ADET"_s, u"MİKTAR"_s, u",0.##"_s),
          summed(u"MZ_TUTAR"_s, u"TUTAR"_s, u",0.00"_s)};
}

}  // namespace SlipTables
