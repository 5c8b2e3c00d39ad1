#include "cards/firm_list.h"

#include "cards/card_columns.h"
#include "cards/card_store.h"
#include "cards/firm_editor.h"

using namespace Qt::StringLiterals;

TfDisServisler* fDisServisler = nullptr;

namespace {

std::vector<GridColumn> firmColumns() {
  using namespace CardColumns;
  return {internal(u"DS_ID"_s),
          shown(u"DS_AD"_s, u"DIŞ SERVİS ADI"_s, 240),
          shown(u"DS_YETKILI"_s, u"YETKİLİ"_s, 150),
          stretching(u"DS_ADRES"_s, u"ADRES"_s, 260),
          shown(u"DS_ILCE_IL"_s, u"İLÇE / İL"_s, 150),
          shown(u"DS_TEL"_s, u"TELEFON"_s, 110),
          shown(u"DS_FAKS"_s, u"FAKS"_s, 110)};
}

}  // namespace

TfDisServisler::TfDisServisler(QWidget* parent)
    : CardList({u"fDisServisler"_s, u"Dış Servisler Listesi"_s, u"qDisServis"_s, u"Kartlar\\Dış Servis Kartları\\"_s, firmColumns()},
               parent),
      qDisServis(cards()) {
  CardStore::setUpFirms(qDisServis);
  const QString add = u"F3 » Kayıt Ekle"_s;
  const CardCommand aEkle{.name = u"aEkle"_s,
                          .caption = add,
                          .icon = u"list-add"_s,
                          .key = Qt::Key_F3,
                          .work = [this] { insertCard([] { fDisServisEkle->Insert(); }); },
                          .right = add,
                          .needsRows = false};
  const CardCommand aDuzelt{.name = u"aDuzelt"_s,
                            .caption = u"F4 » Kayıt Düzelt"_s,
                            .icon = u"document-edit"_s,
                            .key = Qt::Key_F4,
                            .work = [] { fDisServisEkle->Edit(); },
                            .right = add,  // goes by the right to add: meant
                            .needsRow = true};
  addCommands({aEkle, aDuzelt,
               deleteCommand(u"Seçilen dış servis kartı silinecek onaylıyor musunuz?"_s, u"Seçilen dış servis kartı silinemedi!"_s),
               refreshCommand(), printCommand(u"F9 » Rapor Yazdır"_s, {u"Dış Servis Listesi Raporu"_s, u"Dış Servisler Listesi"_s})},
              u"aDuzelt"_s);
  fDisServisler = this;
}

TfDisServisler::~TfDisServisler() {
  if (fDisServisler == this) fDisServisler = nullptr;
}
