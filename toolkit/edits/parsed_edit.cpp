#include "toolkit/edits/parsed_edit.h"

#include "app/exceptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ParsedEdit::ParsedEdit(QWidget* parent) : EditBox(parent) { setEnterMovesOn(true); }

Value ParsedEdit::editValue() const {
  if (isEmpty()) return {};
  const Value value = parsed(text().trimmed());
  if (value.isNull()) throw EConvertError(complaint());
  return value;
}

void ParsedEdit::resetEdit(int) {
  clear();
  setErrorText({});
}

void ParsedEdit::keyPress(QString& characters) {
  characters.removeIf([this](QChar c) { return !takes(c); });
}

QString ParsedEdit::pasteRefusal(const QString& pasted, const QString&) const {
  const bool taken = std::all_of(pasted.begin(), pasted.end(), [this](QChar c) { return takes(c); });
  return taken ? QString() : complaint();
}

void ParsedEdit::leaving() {
  if (isEmpty()) return;
  const Value value = parsed(text().trimmed());
  if (value.isNull())
    setErrorText(complaint());
  else if (const QString usual = shown(value); usual != text())
    setText(usual);
}
