#include "toolkit/edits/parsed_edit.h"

#include "app/exceptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ParsedEdit::ParsedEdit(QWidget* parent) : EditBox(parent) { setEnterMovesOn(true); }

Value ParsedEdit::editValue() const {
  if (isEmpty()) return {};
  const Value value = parsed(text().trimmed());
  if (value.isNull()) throw EConvertError(complaintOf(text()));
  return value;
}

void ParsedEdit::resetEdit(int) {
  clear();
  setErrorText({});
}

void ParsedEdit::keyPress(QString& characters) {
  characters.removeIf([this](QChar c) { return !takes(c); });
}

QString ParsedEdit::typingRefusal(const QString& typed) const { return u"Bu alana %1 yazılamaz."_s.arg(quoted(typed)); }

QString ParsedEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  constexpr qsizetype longest = 30;  // more than any value of these boxes takes
  const bool taken = std::all_of(pasted.begin(), pasted.end(), [this](QChar c) { return takes(c); });
  return taken && whole.size() <= longest ? QString() : complaintOf(pasted);
}

void ParsedEdit::leaving() {
  if (isEmpty()) return;
  const Value value = parsed(text().trimmed());
  if (value.isNull())
    setErrorText(complaintOf(text()));
  else if (const QString usual = shown(value); usual != text())
    setText(usual);
}
