#include "cards/customer_list.h"

#include "app/dmUnit.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
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
  const CardCommand aEkle{.name = u"aEkle"_s,
                          .caption = u"F3 » Kayıt Ekle"_s,
                          .icon = u"list-add"_s,
                          .work = [this] { addCard(); },
                          .right = u"F3 » Kayıt Ekle"_s,
                          .needsRows = false};
  const CardCommand aDuzelt{.name = u"aDuzelt"_s,
                            .caption = u"F4 » Kayıt Düzelt"_s,
                            .icon = u"document-edit"_s,
                            .work = [this] { editCard(); },
                            .right = u"F4 » Kayıt Düzelt"_s,
                            .needsRow = true};
  const CardCommand aCihaz{.name = u"aCihaz"_s,
                           .caption = u"Cihazlar"_s,
                           .icon = u"computer"_s,
                           .work = [this] { showDevices(); },
                           .right = u"Cihazlar"_s,
                           .needsRow = true};
  const CardCommand actSMS{.name = u"actSMS"_s,
                           .caption = u"SMS Gönder"_s,
                           .icon = u"smartphone"_s,
                           .key = Qt::Key_F11,
                           .work = [this] { sendSms(); },
                           .right = u"SMS Gönder"_s};
  const CardCommand aIstatistik{.name = u"aIstatistik"_s,
                                .caption = u"F10 » İstatistik"_s,
                                .icon = u"office-chart-bar"_s,
                                .key = Qt::Key_F10,
                                .work = [this] { showStatistics(); },
                                .right = u"F10 » İstatistik"_s,
                                .alsoNeeds = [this] { return hasNamedRow(); }};
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

void Tfmusteriler::openCards() { qCari.OpenShared(CardStore::versions(DM->pGetQ).customers); }

bool Tfmusteriler::hasNamedRow() { return grid()->currentRow() >= 0 && !qCari.FieldByName(u"CA_AD"_s).asText().isEmpty(); }

/// Rows of two tables are without the key and the version that a save goes by, and a new row would get none.
bool Tfmusteriler::tellsThatRowsHaveNoKey() {
  if (isByDevice_)
    QuendUtil->ErrorMesaj(this, u"Cihaz modeline göre daraltılmış listeye kart eklenemez, listedeki kartlar değiştirilemez.\n\n"
                                "Önce filtreyi temizleyin."_s);
  return isByDevice_;
}

void Tfmusteriler::addCard() {
  if (!tellsThatRowsHaveNoKey()) insertCard([] { fCariEkle->Insert(); });
}

void Tfmusteriler::editCard() {
  if (!tellsThatRowsHaveNoKey()) fCariEkle->Edit();
}

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
