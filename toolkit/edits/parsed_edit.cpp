#include "toolkit/edits/parsed_edit.h"

#include "base/data/value.h"
#include "base/exceptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ParsedEdit::ParsedEdit(QWidget* parent) : EditBox(parent) { setEnterMovesOn(true); }

Value ParsedEdit::editValue() const {
  if (isEmpty()) return {};
  const Value value = parsed(text().trimmed());
  if (value.isNull()) throw EConvertError(complaintOf(text()));
  return value;
}

void ParsedEdit::setEditValue(const Value& value) {
  const auto* text = std::get_if<QString>(&value.data());
  setText(text != nullptr ? *text : value.isNull() ? QString() : shown(value));
  ParsedEdit::leaving();
}

void ParsedEdit::resetEdit(int) {
  clear();
  setErrorText({});
}

Value ParsedEdit::stepped(const Value&, int, int) const { return {}; }

Value ParsedEdit::firstStep(int) const { return {}; }

void ParsedEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  const bool isArrow = key == Qt::Key_Up || key == Qt::Key_Down;
  if (isArrow && (modifiers & ~Qt::KeypadModifier) == Qt::NoModifier && stepPart(key == Qt::Key_Up ? 1 : -1))
    key = 0;
  else
    EditBox::keyDown(key, modifiers);
}

bool ParsedEdit::stepPart(int by) {
  if (isReadOnly() || !isEnabled()) return false;
  const auto isMark = [](QChar c) { return !c.isDigit(); };
  const auto marks = [&](const QString& text) { return int(std::count_if(text.begin(), text.end(), isMark)); };
  int part = 0;
  Value value;
  if (isEmpty()) {
    value = firstStep(by);
  } else {
    value = parsed(text().trimmed());
    if (line()->selectedText() != text()) part = marks(text().left(line()->cursorPosition()));
    if (!value.isNull()) value = stepped(value, part = std::min(part, marks(shown(value))), by);
  }
  if (value.isNull()) return false;
  setText(shown(value));
  const QString now = text();
  auto begin = now.begin();
  for (int mark = 0; mark < part; ++mark) begin = std::find_if(begin, now.end(), isMark) + 1;
  line()->setSelection(int(begin - now.begin()), int(std::find_if(begin, now.end(), isMark) - begin));
  Q_EMIT textEdited(now);
  return true;
}

void ParsedEdit::keyPress(QString& characters) {
  characters.removeIf([this](QChar c) { return !takes(c); });
}

QString ParsedEdit::typingRefusal(const QString& typed) const { return u"Bu alana %1 yazılamaz."_s.arg(quoted(typed)); }

QString ParsedEdit::pasteRefusal(const QString& pasted, const QString& whole) const {
  constexpr qsizetype longest = 30;  // more than any value of these boxes takes
  const bool taken = std::all_of(pasted.begin(), pasted.end(), [this](QChar c) { return takes(c); });
  if (!taken) return typingRefusal(pasted);
  return whole.size() <= longest ? QString() : complaintOf(pasted);
}

void ParsedEdit::leaving() {
  if (isEmpty()) return;
  const Value value = parsed(text().trimmed());
  if (value.isNull())
    setErrorText(complaintOf(text()));
  else if (const QString usual = shown(value); usual != text())
    setText(usual);
}
