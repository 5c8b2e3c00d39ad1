#include "toolkit/edits/currency_edit.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/number_text.h"

#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int wordPauseMs = 1000;

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

QString complaintAbout(const QString& text) { return u"%1 geçerli bir sayı değil."_s.arg(quoted(text)); }

bool isOfNumber(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return isDigit(c) || u",.-"_s.contains(c); });
}

}  // namespace

CurrencyEdit::CurrencyEdit(QWidget* parent) : EditBox(parent), displayFormat_(u",0.00;-,0.00"_s), wordPause_(new QTimer(this)) {
  wordPause_->setSingleShot(true);
  wordPause_->setInterval(wordPauseMs);
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
  if (text.isEmpty()) return clear();
  EditBox::setText(text);
  readText();
}

Value CurrencyEdit::editValue() const {
  if (!typed_) return value_ ? Value(*value_) : Value();
  if (isEmpty()) return 0.0;
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

void CurrencyEdit::endWord() { wordPause_->stop(); }

void CurrencyEdit::showTextBeforeWord() {
  if (typedBeforeWord_) {
    line()->setText(textBeforeWord_);
  } else {
    typed_ = false;
    show();
  }
  line()->selectAll();
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
  value_ = isEmpty() ? 0 : NumberText::toDouble(text());
  typed_ = false;
  show();
}

void CurrencyEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  constexpr int wordEnds[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End};
  if (std::ranges::find(wordEnds, key) != std::end(wordEnds)) endWord();
  EditBox::keyDown(key, modifiers);
}

void CurrencyEdit::keyPress(QString& characters) {
  EditBox::keyPress(characters);
  if (isReadOnly()) return;
  if (!wordPause_->isActive()) {
    word_.clear();
    isSpoilt_ = false;
    textBeforeWord_ = text();
    typedBeforeWord_ = typed_;
  }
  wordPause_->start();
  word_ += characters;
  if (!isSpoilt_ && !isOfNumber(characters)) {
    isSpoilt_ = true;
    showTextBeforeWord();
  }
  if (isSpoilt_) characters.clear();
}

QString CurrencyEdit::typingRefusal(const QString&) const {
  return isSpoilt_ ? u"Bu alana %1 yazılamaz."_s.arg(quoted(word_)) : QString();
}

QString CurrencyEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  const QString complaint = complaintOf(whole);
  return complaint.isEmpty() || isOfNumber(pasted) ? complaint : u"Bu alana %1 yazılamaz."_s.arg(quoted(pasted));
}

/// A nought is there to be typed over: digits beside it would be ten times the amount.
void CurrencyEdit::lineClicked() {
  endWord();
  if (!typed_ && value_ == 0.0) line()->selectAll();
}

void CurrencyEdit::entering() {
  endWord();
  valueAtEntry_ = value_;
  if (!typed_) show();
}

void CurrencyEdit::leaving() {
  endWord();
  readText();
  if (typed_) return;
  show();
  if (value_ != valueAtEntry_) Q_EMIT valueChanged();
}
