#include "service/slip_fields.h"

#include "app/editors/qcx_editors.h"
#include "service/slip_lists.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/memo_edit.h"

using namespace Qt::StringLiterals;

namespace {

EditButton iconButton(const QString& icon, const QString& hint) {
  EditButton button;
  button.icon = QIcon::fromTheme(icon);
  button.hint = hint;
  return button;
}

EditButton outsideServiceButton() {
  EditButton button;
  button.caption = u"«»"_s;
  button.hint = u"Dış Servis"_s;
  return button;
}

EditFrame* newEditor(const SlipField& field, QWidget* parent) {
  switch (field.editor) {
    case SlipEditor::Text:
    case SlipEditor::ReadOnlyText:
      return new qcxTextEdit(parent);
    case SlipEditor::Button:
      return new qcxButtonEdit(parent);
    case SlipEditor::Date:
      return new DateEdit(parent);
    case SlipEditor::Combo:
      return new ComboEdit(parent);
    case SlipEditor::Lookup:
      return new LookupEdit(parent);
    case SlipEditor::Currency:
      return new qcxCurrencyEdit(parent);
    case SlipEditor::Memo:
      return new MemoEdit(parent);
  }
  Q_UNREACHABLE();
}

void setUpAmount(qcxCurrencyEdit& amount, const SlipField& field) {
  amount.setDisplayFormat(amountFormat());
  amount.setDataSize(13);
  // The service fee keeps the usual two places: meant.
  if (field.column != u"TS_SERVIS_TUTAR"_s) amount.setDecimalPlaces(5);
  if (field.column != u"TS_TUTAR"_s) return;
  amount.setEnabled(false);
  // Computed, yet what everyone looks for: as readable as a typed amount.
  QPalette palette = amount.line()->palette();
  palette.setColor(QPalette::Disabled, QPalette::Text, palette.color(QPalette::Active, QPalette::Text));
  amount.line()->setPalette(palette);
  QFont font = amount.line()->font();
  font.setBold(true);
  amount.line()->setFont(font);
}

}  // namespace

const std::vector<SlipField>& slipFields() {
  using enum SlipEditor;
  using enum SlipGroup;
  constexpr auto upper = CharCase::Upper;
  static const std::vector<SlipField> fields{
      {u"TS_NO"_s, u"  FİŞ NO"_s, Button, Slip, 0, 0, 1, 15, upper, {ellipsisButton(u"Yeni Fiş No"_s)}},
      {u"TS_TARIH"_s, u"  FİŞ TARİH"_s, Date, Slip, 0, 1},
      {u"TS_TURU"_s, u"  İŞLEM DURUM"_s, Combo, Slip, 1, 0, 2, 30, upper, {outsideServiceButton()}},
      {u"TS_SERVIS_TIP"_s, u"  SERVİS TİPİ"_s, Combo, Slip, 2, 0, 1, 30},
      {u"TS_HIZMET_TIP"_s, u"  GARANTİ"_s, Combo, Slip, 2, 1, 1, 30},
      {u"TS_RANDEVU"_s, u"  RANDEVU TARİH"_s, Date, Slip, 3, 0},
      {u"TS_TESLIM_TARIH"_s, u"  TESLİM TARİH"_s, Date, Slip, 3, 1},
      {u"TS_TEKNISYEN"_s, u"  TEKNİSYEN"_s, Text, Slip, 4, 0, 1, 40},
      {u"TS_FATURANO"_s, u"  BELGE NO"_s, Text, Slip, 4, 1, 1, 20},
      {u"TS_ACIKLAMA"_s, u"  FİŞ AÇIKLAMA"_s, Text, Slip, 5, 0, 1, 80},
      {u"TS_OZELKOD"_s, u"  ÖZEL KODU"_s, Text, Slip, 5, 1, 1, 20},

      {u"TS_MUSTERI"_s, u"  MÜŞTERİ ADI"_s, Lookup, Customer, 0, 0, 2, 100},
      {u"TS_UNVAN"_s, u"  CARİ ÜNVAN"_s, Text, Customer, 1, 0, 1, 100},
      {u"TS_M_NO"_s, u"  CARİ NO"_s, Text, Customer, 1, 1, 1, 20},
      {u"TS_ADRES"_s, u"  ADRES"_s, Text, Customer, 2, 0, 2, 200},
      {u"TS_ILCE"_s, u"  İLÇE / İL"_s, Text, Customer, 3, 0, 1, 30},
      {u"TS_YETKILI"_s, u"  YETKİLİ ADI"_s, Text, Customer, 3, 1, 1, 80},
      {u"TS_TEL"_s, u"  TELEFON"_s, Text, Customer, 4, 0, 1, 20},
      {u"TS_TEL2"_s, u"  TELEFON 2"_s, Text, Customer, 4, 1, 1, 20},
      {u"TS_CEP"_s, u"  CEP TELEFON"_s, Text, Customer, 5, 0, 1, 20},
      {u"TS_EPOSTA"_s, u"  E-POSTA"_s, Button, Customer, 5, 1, 1, 100, upper, {iconButton(u"mail-message-new"_s, u"E-Posta Gönder"_s)}},

      {u"TS_C_SERINO"_s, u"  DIŞ SERİ NO"_s, Button, Device, 0, 0, 1, 30, upper, {iconButton(u"view-barcode"_s, u"Barkod Baskı"_s)}},
      {u"TS_C_RAFNO"_s, u"  İÇ SERİ NO"_s, Button, Device, 0, 1, 1, 30, upper, {ellipsisButton(u"Seri No Ara"_s)}},
      {u"TS_C_AD"_s, u"  CİHAZ TANIMI"_s, Lookup, Device, 1, 0, 2, 100},
      {u"TS_C_MARKA"_s, u"  DIŞ MODEL NO"_s, Text, Device, 2, 0, 1, 50},
      {u"TS_C_TURU"_s, u"  İÇ MODEL NO"_s, Text, Device, 2, 1, 1, 100},
      {u"TS_C_GARBASTAR"_s, u"  GAR. BAŞ. TAR."_s, Date, Device, 3, 0},
      {u"TS_C_GARBITTAR"_s, u"  GAR. BİT. TAR."_s, Date, Device, 3, 1},
      {u"TS_C_EKPARCA"_s, u"  EK BİRİMLER"_s, Memo, Device, 0, 2, 2, 255},
      {u"TS_C_SIKAYET"_s, u"  ARIZA TANIMI"_s, Memo, Device, 1, 2, 2, 255},
      {u"TS_C_TEKNISYEN_NOT"_s, u"  TEKNİK RAPOR"_s, Memo, Device, 2, 2, 2, 255},

      {u"TS_SERVIS_TUTAR"_s, u"  SERVİS"_s, Currency, Amounts, 0, 0},
      {u"TS_ISCILIK_TUTAR"_s, u"  İŞÇİLİK"_s, Currency, Amounts, 1, 0},
      {u"TS_PARCA_TUTAR"_s, u"  PARÇA"_s, Currency, Amounts, 2, 0},
      {u"TS_TUTAR"_s, u"  TOPLAM"_s, Currency, Amounts, 3, 0},
      {u"TS_ODEME_SEKLI"_s, u"  ÖDEME"_s, Combo, Amounts, 4, 0, 1, 20},
      {u"TS_MALIYET"_s, u"  MALİYET"_s, Currency, Amounts, 5, 0},

      {u"TS_USER"_s, u"  KULLANICI ADI"_s, ReadOnlyText, Record, 0, 0, 1, 15},
      {u"TS_USER_TIME"_s, u"  İŞLEM TARİH"_s, ReadOnlyText, Record, 1, 0, 1, 0},
  };
  return fields;
}

QString groupCaption(SlipGroup group) {
  switch (group) {
    case SlipGroup::Slip:
      return u"Fiş Bilgileri"_s;
    case SlipGroup::Customer:
      return u"Müşteri Bilgileri"_s;
    case SlipGroup::Device:
      return u"Cihaz Bilgileri"_s;
    case SlipGroup::Amounts:
      return u"Tamir ve Maliyet Ücreti"_s;
    case SlipGroup::Record:
      return u"Kayıt Bilgileri"_s;
  }
  Q_UNREACHABLE();
}

EditFrame* createSlipEditor(const SlipField& field, QWidget* parent) {
  EditFrame* editor = newEditor(field, parent);
  editor->setObjectName(field.column);
  if (auto* memo = dynamic_cast<MemoEdit*>(editor)) {
    memo->setCaption(field.caption);
    memo->setCharCase(field.charCase);
    memo->setMaxLength(field.maximumLength);
    return editor;
  }
  auto* box = static_cast<EditBox*>(editor);
  box->setCaption(field.caption);
  box->setCharCase(field.charCase);
  box->setMaxLength(field.maximumLength);
  box->setEnterMovesOn(true);
  for (const EditButton& button : field.buttons) box->addButton(button);
  if (auto* amount = dynamic_cast<qcxCurrencyEdit*>(box)) setUpAmount(*amount, field);
  if (field.editor == SlipEditor::ReadOnlyText) {
    box->setReadOnly(true);
    box->line()->setFocusPolicy(Qt::ClickFocus);
  }
  return editor;
}

QString amountFormat() { return u",0.00;-,0.00"_s; }
