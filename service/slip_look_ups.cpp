#include "service/slip_look_ups.h"

#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/guard.h"
#include "cards/card_store.h"
#include "service/slip_fields_page.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/lookup_edit.h"

using namespace Qt::StringLiterals;

SlipLookUps::SlipLookUps(SlipFieldsPage& page, TMyQuery& qCari, TMyQuery& qCihaz, TMyQuery& qServisTip)
    : page_(page),
      qCari_(qCari),
      qCihaz_(qCihaz),
      qServisTip_(qServisTip),
      customers_(qCari, {{u"CA_AD"_s, u"ADI"_s, 220}, {u"CA_UNVAN"_s, u"ÜNVAN"_s, 220}, {u"CA_ILCE"_s, u"İLÇE/İL"_s, 130}, {u"CA_TEL"_s, u"TELEFON"_s, 120}}),
      devices_(qCihaz, {{u"C_AD"_s, u"CİHAZ ADI"_s, 220}, {u"C_MARKA"_s, u"CİHAZ MARKA"_s, 150}, {u"C_URETICI"_s, u"ÜRETİCİ KODU"_s, 150}}) {
  qCari_.SQL.setText(u"select * from cari order by CA_AD"_s);
  qCihaz_.SQL.setText(u"select * from cihaz order by C_AD"_s);
  qServisTip_.SQL.setText(u"select * from servistip"_s);
  for (TMyQuery* query : {&qCari_, &qCihaz_, &qServisTip_}) query->Options.SetEmptyStrToNull = true;
  connectLookUp(u"TS_MUSTERI"_s, customers_, customerCopies());
  connectLookUp(u"TS_C_AD"_s, devices_, deviceCopies());
}

const SlipLookUps::Copies& SlipLookUps::customerCopies() {
  static const Copies copies{{u"TS_UNVAN"_s, u"CA_UNVAN"_s},     {u"TS_M_NO"_s, u"CA_NO"_s},   {u"TS_ADRES"_s, u"CA_ADRES"_s},
                             {u"TS_ILCE"_s, u"CA_ILCE"_s},       {u"TS_YETKILI"_s, u"CA_YETKILI"_s}, {u"TS_TEL"_s, u"CA_TEL"_s},
                             {u"TS_TEL2"_s, u"CA_TEL2"_s},       {u"TS_CEP"_s, u"CA_CEP"_s},   {u"TS_EPOSTA"_s, u"CA_EPOSTA"_s}};
  return copies;
}

const SlipLookUps::Copies& SlipLookUps::deviceCopies() {
  static const Copies copies{{u"TS_C_MARKA"_s, u"C_MARKA"_s}, {u"TS_C_TURU"_s, u"C_TURU"_s}};
  return copies;
}

void SlipLookUps::connectLookUp(const QString& column, const QueryLookup& source, const Copies& copies) {
  auto* box = page_.edit<LookupEdit>(column);
  box->setSource(&source);
  connectGuarded(box, &LookupEdit::entryTaken, this, [this, &source, &copies](int row) {
    for (const auto& [slipColumn, cardColumn] : copies) page_.setText(slipColumn, source.textOf(row, cardColumn));
  });
  connectGuarded(box, &LookupEdit::entryDropped, this, [this, &copies] {
    for (const auto& copy : copies) page_.setText(copy.first, QString());
  });
}

void SlipLookUps::open() {
  if (qServisTip_.Active()) return;
  const CardStore::Versions versions = CardStore::versions(DM->pGetQ);
  qCari_.OpenShared(versions.customers);
  qCihaz_.OpenShared(versions.devices);
  qServisTip_.OpenShared(versions.serviceTypes);
  page_.edit<LookupEdit>(u"TS_MUSTERI"_s)->sourceChanged();
  page_.edit<LookupEdit>(u"TS_C_AD"_s)->sourceChanged();

  QStringList types;
  const int name = qServisTip_.fieldIndex(u"SERVIS_AD"_s);
  for (int row = 0; row < qServisTip_.RecordCount(); ++row) types.append(qServisTip_.valueAt(row, name).toText());
  page_.edit<ComboEdit>(u"TS_SERVIS_TIP"_s)->setItems(types);
}

void SlipLookUps::refresh() {
  const CardStore::Versions versions = CardStore::versions(DM->pGetQ);
  qCari_.OpenShared(versions.customers);
  qCihaz_.OpenShared(versions.devices);
  page_.edit<LookupEdit>(u"TS_MUSTERI"_s)->sourceChanged();
  page_.edit<LookupEdit>(u"TS_C_AD"_s)->sourceChanged();
}

void SlipLookUps::close() {
  for (TMyQuery* query : {&qCari_, &qCihaz_, &qServisTip_}) query->Close();
}

void SlipLookUps::takeDevice(const QHash<QString, QString>& values) {
  page_.setText(u"TS_C_AD"_s, values.value(u"CH_MODEL"_s));
  page_.setText(u"TS_MUSTERI"_s, values.value(u"CA_AD"_s));
  for (const auto& [slipColumn, cardColumn] : customerCopies()) page_.setText(slipColumn, values.value(cardColumn));
}
