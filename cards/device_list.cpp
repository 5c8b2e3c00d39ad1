#include "cards/device_list.h"

#include "cards/card_columns.h"
#include "cards/card_store.h"

using namespace Qt::StringLiterals;

Tfcihazlar* fcihazlar = nullptr;

namespace {

std::vector<GridColumn> catalogueColumns() {
  using namespace CardColumns;
  return {internal(u"C_ID"_s), stretching(u"C_AD"_s, u"CİHAZ ADI"_s, 360), shown(u"C_TURU"_s, u"CİHAZ TÜRÜ"_s, 260),
          shown(u"C_MARKA"_s, u"CİHAZ MARKA"_s, 200)};
}

}  // namespace

Tfcihazlar::Tfcihazlar(QWidget* parent)
    : CardList({u"fcihazlar"_s, u"Cihaz Listesi"_s, u"qCihaz"_s, u"Kartlar\\Cihaz Kartları\\"_s, catalogueColumns()}, parent),
      qCihaz(cards()) {
  CardStore::setUpDevices(qCihaz);
  // The report bears the slips' title: meant.
  addCommands({deleteCommand(u"Seçilen cihaz kartı silinecek onaylıyor musunuz?"_s, u"Seçilen cihaz kartı silinemedi!"_s),
               refreshCommand(), printCommand(u"F9 » Rapor Yazdır"_s, {u"Cihaz Listesi Raporu"_s, u"Servis Fişleri"_s})});
  fcihazlar = this;
}

Tfcihazlar::~Tfcihazlar() {
  if (fcihazlar == this) fcihazlar = nullptr;
}
