#include "app/editors/qcx_editors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

}  // namespace

qcxButtonEdit::qcxButtonEdit(QWidget* parent) : OnlyCharsEdit(parent) { setFunctionKeysPress(true); }

qcxCurrencyEdit::qcxCurrencyEdit(QWidget* parent) : OnlyCharsEdit(parent) { setFunctionKeysPress(true); }

void qcxCurrencyEdit::keyPress(QString& characters) {
  CurrencyEdit::keyPress(characters);
  if (std::any_of(characters.cbegin(), characters.cend(), isDigit) && !isEmpty()) {
    // The value goes before OnlyChars is asked, so that it is gone even when that drops the digit: this order is meant.
    if (line()->hasSelectedText() && line()->selectedText().size() == text().size())
      line()->clear();
    else if (dataSize() > 0 && digitCount() >= dataSize())
      characters.clear();
  }
  properties().keepOnlyChars(characters);
}

QString qcxCurrencyEdit::digitsComplaint() const { return u"Bu alana en çok %1 rakam girilebilir."_s.arg(dataSize()); }

QString qcxCurrencyEdit::typingRefusal(const QString& typed) const {
  const QString inherited = OnlyCharsEdit::typingRefusal(typed);
  return inherited.isEmpty() ? digitsComplaint() : inherited;
}

QString qcxCurrencyEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  const QString inherited = OnlyCharsEdit::pasteRefusal(pasted, whole);
  const bool isTooLong = dataSize() > 0 && std::count_if(whole.cbegin(), whole.cend(), isDigit) > dataSize();
  return inherited.isEmpty() && isTooLong ? digitsComplaint() : inherited;
}
