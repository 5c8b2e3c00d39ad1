#include "contracts/contract_list.h"

#include "app/dmUnit.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "cards/card_columns.h"
#include "cards/card_store.h"
#include "contracts/contract_letter.h"
#include "contracts/contract_rules.h"
#include "contracts/contract_store.h"
#include "toolkit/grid/data_grid.h"

#include <QAction>

using namespace Qt::StringLiterals;

TfSozlesme* fSozlesme = nullptr;

namespace {

std::vector<GridColumn> contractColumns(std::function<QString(const Value&)> nameOfCustomer) {
  using namespace CardColumns;
  GridColumn customer = stretching(u"SOZ_CA_ID_REF"_s, u"MÜŞTERİ ADI"_s, 220);
  customer.lookUp = std::move(nameOfCustomer);
  GridColumn distance = shown(u"SOZ_MESAFE"_s, u"SERVİS MESAFE"_s, 120);
  distance.displayFormat = u",0 KM;-,0 KM;0"_s;
  GridColumn price = shown(u"SOZ_TUTAR"_s, u"SÖZLEŞME TUTAR"_s, 130);
  price.displayFormat = u",0.00"_s;
  GridColumn period = hidden(u"SOZ_HATIRLA_DONEM"_s, u"PERİYOD"_s, 90);
  for (const ContractPeriod& each : ContractRules::periods()) period.values.push_back({QString::number(each.code), each.caption});
  return {hidden(u"SOZ_ID"_s, u"ID"_s, 60),
          shown(u"SOZ_NO"_s, u"NO"_s, 80),
          shown(u"SOZ_AD"_s, u"SÖZLEŞME ADI"_s, 230),
          customer,
          distance,
          shown(u"SOZ_BAS_TARIH"_s, u"BAŞLAMA TARİH"_s, 115),
          shown(u"SOZ_BIT_TARIH"_s, u"BİTİŞ TARİH"_s, 105),
          price,
          hidden(u"SOZ_HATIRLA_TARIH"_s, u"HATIRLATMA TARİH"_s, 130),
          hidden(u"SOZ_HATIRLA_SAAT"_s, u"HATIRLATMA SAAT"_s, 130),
          hidden(u"SOZ_HATIRLA_MESAJ"_s, u"HATIRLATMA MESAJ"_s, 220),
          period,
          hidden(u"SOZ_OZELKOD"_s, u"ÖZEL KOD"_s, 110),
          shown(u"SOZ_STATU"_s, u"DURUM"_s, 80)};
}

}  // namespace

struct TfSozlesme::Queries {
  TMyQuery qCari{DM->MySQL, u"qCari"_s};
  TMyQuery qDetay{DM->MySQL, u"qDetay"_s};
};

TfSozlesme::TfSozlesme(QWidget* parent)
    : CardList({u"fSozlesme"_s, u"Bakım Sözleşme Takip"_s, u"qSozlesme"_s, u"Bakım Sözleşmesi\\"_s,
                contractColumns([this](const Value& key) { return customers.textOfKey(key); })},
               parent),
      queries_(std::make_unique<Queries>()),
      qSozlesme(cards()),
      qCari(queries_->qCari),
      qDetay(queries_->qDetay),
      // The caption of the third column does not fit its field: meant.
      customers(qCari,
                {{u"CA_AD"_s, u"MÜŞTERİ ADI"_s, 220}, {u"CA_ILCE"_s, u"İLÇE / İL"_s, 140}, {u"CA_IL"_s, u"YETKİLİ"_s, 120},
                 {u"CA_TEL"_s, u"TELEFON"_s, 110}},
                u"CA_ID"_s) {
  ContractStore::setUpContracts(qSozlesme);
  ContractStore::setUpCustomers(qCari);
  ContractStore::setUpScratch(qDetay);
  grid()->setAccessibleName(u"Bakım Sözleşmeleri"_s);
  grid()->setMultiSelect(true);
  grid()->setFilterBoxOnTop();
  const QString deleteCaption = u"F6 » Kayıt Sil"_s;
  // The right to delete is the right to add as well: meant. The captions of the first two name keys that are not bound: meant.
  const CardCommand aEkle{.name = u"aEkle"_s,
                          .caption = u"F3 » Kayıt Ekle"_s,
                          .icon = u"list-add"_s,
                          .work = [this] { insertCard([] { fSozlesmeEkle->Insert(); }); },
                          .right = deleteCaption,
                          .needsRows = false};
  const CardCommand aDuzelt{.name = u"aDuzelt"_s,
                            .caption = u"F4 » Kayıt Düzelt"_s,
                            .icon = u"document-edit"_s,
                            .work = [] { fSozlesmeEkle->Edit(); },
                            .right = u"F4 » Kayıt Düzelt"_s,
                            .needsRow = true};
  const CardCommand aFisSil{.name = u"aFisSil"_s,
                            .caption = deleteCaption,
                            .icon = u"edit-delete"_s,
                            .key = Qt::Key_F6,
                            .work = [this] { deleteContract(); },
                            .right = deleteCaption,
                            .needsRow = true,
                            .alsoNeeds = [this] { return grid()->hasSelectedRow(); }};
  // These titles are the slip list's: meant.
  CardCommand aYazdir = printCommand(u"F9 » Yazdır"_s, {u"Servis Fişleri Raporu"_s, u"Servis Fişleri"_s});
  aYazdir.right.clear();
  addCommands({aEkle, aDuzelt, aFisSil, refreshCommand(), aYazdir}, u"aDuzelt"_s);
  addRowCommand({.name = u"actSozlesme"_s,
                 .caption = u"Sözleşme Yazdır"_s,
                 .icon = u"document-print"_s,
                 .work = [this] { ContractLetter::print(this, queries()); },
                 .right = u"Sözleşme Yazdır"_s,
                 .needsRow = true});
  fSozlesme = this;
}

TfSozlesme::~TfSozlesme() {
  if (fSozlesme == this) fSozlesme = nullptr;
}

void TfSozlesme::Giris() {
  qCari.OpenShared(CardStore::versions(DM->pGetQ).customers);
  qSozlesme.Open();
  showList();
}

/// The row under the cursor alone, whatever is selected, and what goes wrong goes up: meant.
void TfSozlesme::deleteContract() {
  if (QuendUtil->Mesaj(this, u"Seçilen bakım sözleşmesi silinecek onaylıyor musunuz"_s) == TQuendUtil::Confirmed) qSozlesme.Delete();
}
