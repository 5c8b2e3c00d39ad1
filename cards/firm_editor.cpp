#include "cards/firm_editor.h"

#include "app/editors/qcx_db_editors.h"
#include "app/ports.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"

using namespace Qt::StringLiterals;

TfDisServisEkle* fDisServisEkle = nullptr;

namespace {

constexpr int givenUp = 7;
constexpr bool wide = true;

std::vector<CardField> firmFields() {
  return {{u"DS_AD"_s, u"DIŞ SERVİS ADI"_s, wide}, {u"DS_ADRES"_s, u" ADRES"_s, wide}, {u"DS_ILCE_IL"_s, u" İLÇE / İL"_s},
          {u"DS_YETKILI"_s, u" YETKİLİ"_s},        {u"DS_TEL"_s, u" TELEFON"_s},       {u"DS_FAKS"_s, u" FAKS"_s}};
}

}  // namespace

TfDisServisEkle::TfDisServisEkle(TMyQuery& firms, QWidget* parent)
    : CardEditor(firms, u"fDisServisEkle"_s, u"Dış Servis"_s, firmFields(), parent) {
  fDisServisEkle = this;
}

TfDisServisEkle::~TfDisServisEkle() {
  if (fDisServisEkle == this) fDisServisEkle = nullptr;
}

void TfDisServisEkle::Insert() {
  cards().Insert();
  if (showCard() != Saved) cards().Cancel();
}

void TfDisServisEkle::Edit() {
  cards().Edit();
  if (showCard() != Saved) cards().Cancel();
}

/// A card that cannot be written stays open with what was typed. The error of a new one goes up as it is.
void TfDisServisEkle::save() {
  if (!takeTyped()) return;
  if (box(u"DS_AD"_s)->text().trimmed().isEmpty()) {
    pointAt(*box(u"DS_AD"_s), u"\"DIŞ SERVİS ADI\" alanı boş bırakılamaz."_s);
    return;
  }
  try {
    cards().Post();
  } catch (const Exception& error) {
    if (cards().state() == QueryState::Insert) throw;
    const std::vector<Value> values = typed();
    cards().Cancel();
    // Speaks of the slip on the screen, if there is one: meant.
    ports().answerSlipConflict(error.className(), error.message());
    cards().Edit();
    typeAgain(values);
    return;
  }
  done(Saved);
}

void TfDisServisEkle::giveUp() {
  dropTyped();
  done(givenUp);
}
