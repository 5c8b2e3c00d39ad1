#include "cards/customer_editor.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_db_editors.h"
#include "app/row_conflict.h"
#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "cards/card_store.h"
#include "toolkit/edits/edit_box.h"

#include <QAction>

using namespace Qt::StringLiterals;

TfCariEkle* fCariEkle = nullptr;

namespace {

constexpr int givenUp = 2;
constexpr bool wide = true;

std::vector<CardField> customerFields() {
  return {{u"CA_AD"_s, u" MÜŞTERİ ADI"_s, wide},
          {u"CA_UNVAN"_s, u" CARİ ÜNVAN"_s},
          {u"CA_NO"_s, u" CARİ NO"_s},
          {u"CA_ADRES"_s, u" ADRES"_s, wide},
          {u"CA_ILCE"_s, u" İLÇE / İL"_s},
          {u"CA_YETKILI"_s, u" YETKİLİ"_s},
          {u"CA_TEL"_s, u" TELEFON"_s},
          {u"CA_TEL2"_s, u" TELEFON 2"_s},
          {u"CA_CEP"_s, u" CEP TELEFON"_s},
          {u"CA_EPOSTA"_s, u" E-POSTA"_s},
          {u"CA_OZELKOD1"_s, u" ÖZEL KOD 1"_s},
          {u"CA_OZELKOD2"_s, u" ÖZEL KOD 2"_s}};
}

}  // namespace

TfCariEkle::TfCariEkle(TMyQuery& customers, QWidget* parent)
    : CardEditor(customers, u"fCariEkle"_s, u"Cari Hesap"_s, customerFields(), parent) {
  widenWhileFocused(u"CA_UNVAN"_s);
  fCariEkle = this;
}

TfCariEkle::~TfCariEkle() {
  if (fCariEkle == this) fCariEkle = nullptr;
}

void TfCariEkle::Insert() {
  cards().Insert();
  showCard();
}

void TfCariEkle::Edit() {
  cards().Edit();
  showCard();
}

void TfCariEkle::save() {
  if (!takeTyped()) return;
  try {
    cards().Post();
  } catch (const Exception& error) {
    // Whatever the answer, the error goes no further and the card stays in edit: meant.
    EditBox* name = box(u"CA_AD"_s);
    answerRowConflict({.owner = this,
                       .clashMark = u"CA_AD"_s,
                       .uniqueCaption = u"MÜŞTERİ ADI"_s,
                       .isThere = [name] { return CardStore::exists(DM->pGetQ, u"cari"_s, u"CA_AD"_s, name->text()); },
                       .rows = &cards(),
                       .saveAgain = [this] { aKaydet->trigger(); },
                       .tellAtBox = [this, name](const QString& text) { pointAt(*name, text); }},
                      error.className(), error.message());
    return;
  }
  done(Saved);
}

void TfCariEkle::giveUp() {
  cards().Cancel();
  dropTyped();
  done(givenUp);
}
