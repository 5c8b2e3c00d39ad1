#include "contracts/contract_editor.h"

#include "app/dmUnit.h"
#include "app/editors/qcx_db_editors.h"
#include "app/row_conflict.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "cards/card_store.h"
#include "contracts/contract_rules.h"
#include "contracts/contract_store.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/key_lookup_edit.h"
#include "toolkit/edits/query_lookup.h"
#include "toolkit/edits/radio_group_edit.h"
#include "toolkit/edits/time_mask_edit.h"

#include <QAction>

using namespace Qt::StringLiterals;

TfSozlesmeEkle* fSozlesmeEkle = nullptr;

namespace {

constexpr int givenUp = 2;
constexpr bool wide = true;
constexpr int ellipsis = 1;  ///< the button behind the caption
constexpr int mostDigits = 13;
const QString timeBox = u"HAT_SAAT"_s;
const QString customerBox = u"TS_MUSTERI"_s;

EditFrame* numberBox(QWidget* area) {
  auto* box = new qcxDBButtonEdit(area);
  box->setCharCase(CharCase::Upper);
  return box;
}

EditFrame* dateBox(QWidget* area) { return new LinkedEdit<DateEdit>(area); }
EditFrame* timeOfDayBox(QWidget* area) { return new LinkedEdit<TimeMaskEdit>(area); }

std::function<EditFrame*(QWidget*)> amountBox(const QString& format, int places) {
  return [=](QWidget* area) {
    auto* box = new qcxDBCurrencyEdit(area);
    box->setDisplayFormat(format);
    box->setDecimalPlaces(places);
    box->setDataSize(mostDigits);
    return box;
  };
}

EditFrame* stateBox(QWidget* area) {
  auto* box = new LinkedEdit<ComboEdit>(area);
  box->setItems(ContractRules::states());
  return box;
}

EditFrame* periodBox(QWidget* area) {
  auto* box = new LinkedEdit<RadioGroupEdit>(3, area);
  box->setCaption(u"Bakım Periyodu"_s);
  for (const ContractPeriod& each : ContractRules::periods()) box->addChoice(each.caption, each.code);
  return box;
}

std::vector<CardField> contractFields(const KeyedLookup& customers) {
  const auto customer = [&customers](QWidget* area) {
    auto* box = new LinkedEdit<KeyLookupEdit>(customers, area);
    box->setCharCase(CharCase::Upper);
    return box;
  };
  return {{u"SOZ_NO"_s, u" SÖZLEŞME NO"_s, false, {}, numberBox},
          {u"SOZ_STATU"_s, u" DURUM"_s, false, u"DURUM"_s, stateBox},
          {u"SOZ_AD"_s, u" SÖZLEŞME ADI"_s, wide},
          {u"SOZ_CA_ID_REF"_s, u" MÜŞTERİ ADI"_s, wide, customerBox, customer},
          {u"SOZ_BAS_TARIH"_s, u" BAŞ. TARİH"_s, false, u"BAS_TAR"_s, dateBox},
          {u"SOZ_BIT_TARIH"_s, u" BİT. TARİH"_s, false, u"BIT_TAR"_s, dateBox},
          {u"SOZ_TUTAR"_s, u" TUTAR"_s, false, u"TUTAR"_s, amountBox(u",0.00;-,0.00"_s, 5)},
          {u"SOZ_MESAFE"_s, u" MESAFE"_s, false, u"MESAFE"_s, amountBox(u",0 KM;-,0 KM"_s, 0)},
          {u"SOZ_HATIRLA_TARIH"_s, u" TARİH"_s, false, u"HAT_TAR"_s, dateBox},
          {u"SOZ_HATIRLA_SAAT"_s, u" SAAT"_s, false, timeBox, timeOfDayBox},
          {u"SOZ_HATIRLA_MESAJ"_s, u" AÇIKLAMA"_s, wide, u"MESAJ"_s},
          {u"SOZ_HATIRLA_DONEM"_s, u"Bakım Periyodu"_s, wide, u"DONEM"_s, periodBox},
          {u"SOZ_OZELKOD"_s, u" ÖZEL KOD"_s, false, u"OZELKOD"_s}};
}

}  // namespace

TfSozlesmeEkle::TfSozlesmeEkle(const ContractQueries& queries, QWidget* parent)
    : CardEditor(queries.qSozlesme, u"fSozlesmeEkle"_s, u"Bakım Sözleşmesi"_s, contractFields(queries.customers), parent),
      queries_(queries) {
  box(u"SOZ_NO"_s)->addButton(ellipsisButton(u"Sözleşme Numarası Öner"_s));
  connectGuarded(box(u"SOZ_NO"_s), &EditBox::buttonClicked, this, [this](int button) { SOZ_NOPropertiesButtonClick(button); });
  fSozlesmeEkle = this;
}

TfSozlesmeEkle::~TfSozlesmeEkle() {
  if (fSozlesmeEkle == this) fSozlesmeEkle = nullptr;
}

void TfSozlesmeEkle::Insert() {
  queries_.qCari.Refresh();
  cards().Insert();
  try {
    SOZ_NOPropertiesButtonClick(ellipsis);
  } catch (...) {
    cards().Cancel();
    throw;
  }
  showCard();
}

void TfSozlesmeEkle::Edit() {
  queries_.qCari.Refresh();
  cards().Edit();
  showCard();
}

/// Proposes a number. It is only proposed: of two users who get the same one, the second is told when he saves.
void TfSozlesmeEkle::SOZ_NOPropertiesButtonClick(int button) {
  if (button != ellipsis) return;
  auto* number = static_cast<qcxDBButtonEdit*>(box(u"SOZ_NO"_s));
  number->setText(ContractRules::proposedNumber(ContractStore::largestNumber(queries_.qDetay, number->text()), number->text()));
  number->fieldLink().markChanged();
  number->fieldLink().leave();
  number->line()->selectAll();
}

void TfSozlesmeEkle::save() {
  const ContractInput input{box(u"SOZ_NO"_s)->text(),  box(customerBox)->text(), box(u"BAS_TAR"_s)->text(), box(u"BIT_TAR"_s)->text(),
                            box(u"HAT_TAR"_s)->text(), static_cast<RadioGroupEdit*>(frame(u"DONEM"_s))->itemIndex()};
  if (const auto fault = ContractRules::firstFault(input)) {
    pointAt(*frame(fault->box), fault->message);
    setResult(0);
    return;
  }
  if (!takeTyped()) return;
  try {
    cards().Post();
    queries_.qCari.Refresh();
  } catch (const Exception& error) {
    answer(error);
    return;
  }
  done(Saved);
}

/// Whatever the answer, the error goes no further and the contract stays on the screen: meant.
void TfSozlesmeEkle::answer(const Exception& error) {
  EditBox* number = box(u"SOZ_NO"_s);
  answerRowConflict({.owner = this,
                     .clashMark = u"SOZ_NO"_s,
                     .uniqueCaption = u"SÖZLEŞME NO"_s,
                     .isThere = [number] { return CardStore::exists(DM->pGetQ, u"sozlesme"_s, u"SOZ_NO"_s, number->text()); },
                     .rows = &cards(),
                     .saveAgain = [this] { aKaydet->trigger(); },
                     .tellAtBox = [this, number](const QString& text) { pointAt(*number, text); }},
                    error.className(), error.message());
  constexpr unsigned noSuchRow = 1452;  // of the table that a foreign key names
  const auto* refusal = dynamic_cast<const EMyError*>(&error);
  if (refusal != nullptr && refusal->code() == noSuchRow)
    pointAt(*box(customerBox), u"Seçilen müşterinin kartı bir başka kullanıcı tarafından silinmiş."_s);
}

void TfSozlesmeEkle::refused(EditFrame& box, const Exception& error) {
  CardEditor::refused(box, error);
  if (box.objectName() != timeBox) return;
  // A wrong time is emptied and takes the keyboard back: meant.
  box.setEditValue({});
  box.setErrorText({});
  postGuarded(&box, [&box] { box.setFocus(); });
}

void TfSozlesmeEkle::giveUp() {
  cards().Cancel();
  dropTyped();
  done(givenUp);
}
