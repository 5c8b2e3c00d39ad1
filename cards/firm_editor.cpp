#include "cards/firm_editor.h"

#include "app/ports.h"
#include "base/data/my_query.h"
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
  if (showCard() != Saved) {
    cards().Cancel();
    return;
  }
  try {
    cards().Post();
  } catch (...) {
    cards().Cancel();
    throw;
  }
}

void TfDisServisEkle::Edit() {
  cards().Edit();
  if (showCard() != Saved) {
    cards().Cancel();
    return;
  }
  try {
    cards().Post();
  } catch (const Exception& error) {
    cards().Cancel();
    // Speaks of the slip on the screen, if there is one: meant.
    ports().answerSlipConflict(error.className(), error.message());
  }
}

void TfDisServisEkle::save() {
  if (takeTyped()) done(Saved);
}

void TfDisServisEkle::giveUp() {
  dropTyped();
  done(givenUp);
}
