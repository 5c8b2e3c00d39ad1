#include "cards/customer_list.h"

#include "app/ports.h"
#include "base/guard.h"
#include "base/platform/shell_open.h"
#include "base/program_paths.h"
#include "cards/card_columns.h"
#include "cards/card_rules.h"
#include "cards/card_store.h"
#include "cards/customer_devices.h"
#include "cards/customer_editor.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/grid/xls_export.h"

#include <QAction>

using namespace Qt::StringLiterals;

Tfmusteriler* fmusteriler = nullptr;

namespace {

std::vector<GridColumn> customerColumns() {
  using namespace CardColumns;
  GridColumn balance = internal(u"CA_BAKIYE"_s, u"BAKİYE"_s);
  balance.displayFormat = u",0.00 (B);,0.00 (A);0"_s;
  return {internal(u"CA_ID"_s),
          shown(u"CA_NO"_s, u"CARİ NO"_s, 80),
          shown(u"CA_AD"_s, u"MÜŞTERİ ADI"_s, 220),
          stretching(u"CA_UNVAN"_s, u"CARİ ÜNVAN"_s, 200),
          hidden(u"CA_ADRES"_s, u"MÜŞTERİ ADRES"_s, 260),
          shown(u"CA_ILCE"_s, u"İLÇE / İL"_s, 150),
          shown(u"CA_YETKILI"_s, u"YETKİLİ ADI"_s, 150),
          shown(u"CA_CEP"_s, u"CEP TELEFON"_s, 110),
          shown(u"CA_TEL"_s, u"TELEFON"_s, 110),
          hidden(u"CA_TEL2"_s, u"TELEFON 2"_s, 110),
          hidden(u"CA_EPOSTA"_s, u"E-POSTA"_s, 180),
          balance,
          hidden(u"CA_OZELKOD1"_s, u"ÖZEL KOD 1"_s, 120),
          hidden(u"CA_OZELKOD2"_s, u"ÖZEL KOD 2"_s, 120)};
}

}  // namespace

Tfmusteriler::Tfmusteriler(QWidget* parent)
    : CardList({u"fmusteriler"_s, u"Müşteri Listesi"_s, u"qCari"_s, u"Kartlar\\Müşteri Kartları\\"_s, customerColumns()}, parent),
      qCari(cards()) {
  CardStore::setUpCustomers(qCari);
  // The captions of these two name keys that are not bound: meant.
  const CardCommand aEkle{u"aEkle"_s, u"F3 » Kayıt Ekle"_s, u"list-add"_s, {},
                          [this] { insertCard([] { fCariEkle->Insert(); }); }, u"F3 » Kayıt Ekle"_s, false};
  const CardCommand aDuzelt{u"aDuzelt"_s, u"F4 » Kayıt Düzelt"_s, u"document-edit"_s, {},
                            atRow([] { fCariEkle->Edit(); }), u"F4 » Kayıt Düzelt"_s};
  const CardCommand aCihaz{u"aCihaz"_s, u"Cihazlar"_s, u"computer"_s, {},
                           atRow([this] { showDevices(); }), u"Cihazlar"_s};
  const CardCommand actSMS{u"actSMS"_s, u"SMS Gönder"_s, u"smartphone"_s, Qt::Key_F11, [this] { sendSms(); }, u"SMS Gönder"_s};
  const CardCommand aIstatistik{u"aIstatistik"_s, u"F10 » İstatistik"_s, u"office-chart-bar"_s, Qt::Key_F10,
                                [this] { showStatistics(); }, u"F10 » İstatistik"_s, true, [this] { return hasNamedRow(); }};
  const CardReport report{u"Müşteri Listesi Raporu"_s, u"Cari Hesaplar"_s, [this](QWidget*) { exportToExcel(); }};
  addCommands({aEkle, aDuzelt,
               deleteCommand(u"Seçilen cari kart silinecek onaylıyor musunuz?"_s, u"Seçilen cari kart silinemedi!"_s), aCihaz,
               refreshCommand(), printCommand(u"F9 » Yazdır"_s, report), actSMS, aIstatistik},
              u"aDuzelt"_s);
  grid()->setFilterHandler([this](const std::optional<FilterExpression>& filter) { return takeFilter(filter); });
  fmusteriler = this;
}

Tfmusteriler::~Tfmusteriler() {
  if (fmusteriler == this) fmusteriler = nullptr;
}

/// A filter by a customer's device goes to the server, as the rows lack that column; any other one is the grid's.
bool Tfmusteriler::takeFilter(const std::optional<FilterExpression>& filter) {
  if (filter && CardStore::goesByDevice(*filter)) {
    CardStore::openByDevice(qCari, *filter);
    isByDevice_ = true;
    return true;
  }
  if (std::exchange(isByDevice_, false)) {
    CardStore::setUpCustomers(qCari);
    if (qCari.Active()) qCari.Open();
  }
  return false;
}

bool Tfmusteriler::hasNamedRow() { return grid()->currentRow() >= 0 && !qCari.FieldByName(u"CA_AD"_s).asText().isEmpty(); }

void Tfmusteriler::showDevices() {
  fMusteriCihaz->setSheetCaption(qCari.FieldByName(u"CA_AD"_s).asText());
  fMusteriCihaz->Giris(int(qCari.FieldByName(u"CA_ID"_s).asInteger()));
}

void Tfmusteriler::sendSms() {
  std::vector<QString> numbers;
  for (qCari.First(); !qCari.Eof(); qCari.Next()) numbers.push_back(qCari.FieldByName(u"CA_CEP"_s).asText());
  grid()->setCurrentRow(qCari.RecNo());  // stays on the last customer: meant
  ports().openBulkSms(CardRules::joinedNumbers(numbers));
}

void Tfmusteriler::showStatistics() {
  ports().openCustomerStatistics(qCari.FieldByName(u"CA_AD"_s).asText());
}

void Tfmusteriler::exportToExcel() {
  // Written into the current folder and opened beside the program, wherever that is: meant.
  exportXls(*grid()->content(true), windowTitle(), u"CariHesaplar.xls"_s);
  shellOpen(programFolder() + u"CariHesaplar.xls"_s);
}
