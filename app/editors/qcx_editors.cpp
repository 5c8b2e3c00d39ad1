#include "app/editors/qcx_editors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

}  // namespace

qcxTextEdit::qcxTextEdit(QWidget* parent) : TextEdit(parent) { setEnterMovesOn(true); }

void qcxTextEdit::keyPress(QString& characters) {
  TextEdit::keyPress(characters);
  properties_.keepOnlyChars(characters);
}

QString qcxTextEdit::typingRefusal(const QString& typed) const { return properties_.refusal(typed); }

QString qcxTextEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  const QString inherited = TextEdit::pasteRefusal(pasted, whole);
  return inherited.isEmpty() ? properties_.refusal(pasted) : inherited;
}

qcxButtonEdit::qcxButtonEdit(QWidget* parent) : ButtonEdit(parent) {
  setEnterMovesOn(true);
  setFunctionKeysPress(true);
}

void qcxButtonEdit::keyPress(QString& characters) {
  ButtonEdit::keyPress(characters);
  properties_.keepOnlyChars(characters);
}

QString qcxButtonEdit::typingRefusal(const QString& typed) const { return properties_.refusal(typed); }

QString qcxButtonEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  const QString inherited = ButtonEdit::pasteRefusal(pasted, whole);
  return inherited.isEmpty() ? properties_.refusal(pasted) : inherited;
}

qcxCurrencyEdit::qcxCurrencyEdit(QWidget* parent) : CurrencyEdit(parent) {
  setEnterMovesOn(true);
  setFunctionKeysPress(true);
}

void qcxCurrencyEdit::keyPress(QString& characters) {
  CurrencyEdit::keyPress(characters);
  if (std::any_of(characters.cbegin(), characters.cend(), isDigit) && !isEmpty()) {
    // The value goes before OnlyChars is asked, so that it is gone even when that drops the digit: this order is meant.
    if (line()->hasSelectedText() && line()->selectedText().size() == text().size())
      line()->clear();
    else if (properties_.dataSize > 0 && digitCount() >= properties_.dataSize)
      characters.clear();
  }
  properties_.keepOnlyChars(characters);
}

QString qcxCurrencyEdit::digitsComplaint() const { return u"Bu alana en çok %1 rakam girilebilir."_s.arg(properties_.dataSize); }

QString qcxCurrencyEdit::typingRefusal(const QString& typed) const {
  if (const QString inherited = CurrencyEdit::typingRefusal(typed); !inherited.isEmpty()) return inherited;
  const QString refusal = properties_.refusal(typed);
  return refusal.isEmpty() ? digitsComplaint() : refusal;
}

QString qcxCurrencyEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  if (const QString inherited = CurrencyEdit::pasteRefusal(pasted, whole); !inherited.isEmpty()) return inherited;
  if (properties_.dataSize > 0 && std::count_if(whole.cbegin(), whole.cend(), isDigit) > properties_.dataSize) return digitsComplaint();
  return properties_.refusal(pasted);
}
