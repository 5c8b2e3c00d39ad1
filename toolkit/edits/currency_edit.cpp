#include "toolkit/edits/currency_edit.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/number_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

QString complaintAbout(const QString& text) { return u"%1 geçerli bir sayı değil."_s.arg(quoted(text)); }

bool isNumberMark(QChar c) { return isDigit(c) || u",.-"_s.contains(c); }

}  // namespace

CurrencyEdit::CurrencyEdit(QWidget* parent) : EditBox(parent), displayFormat_(u",0.00;-,0.00"_s) {
  line()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  connectGuarded(line(), &QLineEdit::textChanged, this, [this] {
    if (!showing_) typed_ = true;
  });
}

void CurrencyEdit::setDisplayFormat(const QString& format) {
  displayFormat_ = format;
  if (!typed_) show();
}

double CurrencyEdit::value() const { return editValue().toDouble(); }

void CurrencyEdit::setValue(double value) {
  value_ = value;
  typed_ = false;
  show();
}

bool CurrencyEdit::isEmpty() const { return text().trimmed().isEmpty(); }

void CurrencyEdit::clear() {
  value_.reset();
  typed_ = false;
  show();
}

int CurrencyEdit::digitCount() const {
  const QString shown = text();
  return int(std::count_if(shown.begin(), shown.end(), isDigit));
}

void CurrencyEdit::setText(const QString& text) {
  EditBox::setText(text);
  readText();
}

Value CurrencyEdit::editValue() const {
  if (!typed_) return value_ ? Value(*value_) : Value();
  if (isEmpty()) return {};
  if (const QString complaint = complaintOf(text()); !complaint.isEmpty()) throw EConvertError(complaint);
  return *NumberText::toDouble(text());
}

/// Why a text cannot be the amount; empty when it can. More digits behind the mark than the box has are not cut: "1,234.56"
/// or "1,234" may have been meant as thousands.
QString CurrencyEdit::complaintOf(const QString& text) const {
  const auto plain = NumberText::toDecimal(text);
  if (!plain || !NumberText::toDouble(text)) return complaintAbout(text);
  const qsizetype mark = plain->indexOf(u'.');
  if (mark < 0 || plain->size() - mark - 1 <= decimalPlaces_) return {};
  return u"%1: virgülden sonra en çok %2 basamak yazılabilir."_s.arg(quoted(text)).arg(decimalPlaces_);
}

void CurrencyEdit::setEditValue(const Value& value) {
  if (value.isNull())
    clear();
  else
    setValue(value.toDouble());
}

void CurrencyEdit::resetEdit(int) {
  setValue(0);
  setErrorText({});
}

/// The untouched value as it is shown: plain with the focus, by the display format without.
void CurrencyEdit::show() {
  showing_ = true;
  if (!value_)
    line()->setText({});
  else if (line()->hasFocus() && !isReadOnly())
    line()->setText(NumberText::fromDouble(*value_));
  else
    line()->setText(NumberText::formatted(displayFormat_, *value_));
  showing_ = false;
}

/// Takes the typed text over as the value; a text that is no number stays and is marked.
void CurrencyEdit::readText() {
  if (!typed_) return;
  const QString complaint = isEmpty() ? QString() : complaintOf(text());
  if (!complaint.isEmpty()) return setErrorText(complaint);
  value_ = NumberText::toDouble(text());
  typed_ = false;
  show();
}

void CurrencyEdit::keyPress(QString& characters) {
  EditBox::keyPress(characters);
  characters.removeIf([](QChar c) { return !isNumberMark(c); });
}

QString CurrencyEdit::typingRefusal(const QString& typed) const {
  const bool isNumber = std::all_of(typed.begin(), typed.end(), isNumberMark);
  return isNumber ? QString() : u"Bu alana yalnızca sayı yazılabilir."_s;
}

QString CurrencyEdit::pasteRefusal(const QString&, const QString& whole) const { return complaintOf(whole); }

void CurrencyEdit::entering() {
  valueAtEntry_ = value_;
  if (!typed_) show();
}

void CurrencyEdit::leaving() {
  readText();
  if (typed_) return;
  show();
  if (value_ != valueAtEntry_) Q_EMIT valueChanged();
}
