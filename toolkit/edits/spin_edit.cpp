#include "toolkit/edits/spin_edit.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

SpinEdit::SpinEdit(QWidget* parent) : ParsedEdit(parent) {
  const int less = addButton({u"−"_s, {}, u"Azalt"_s, 20, EditButton::Right, false});
  const int more = addButton({u"+"_s, {}, u"Artır"_s, 20, EditButton::Right, false});
  connectGuarded(this, &EditBox::buttonClicked, this, [this, less, more](int index) {
    if (index == less) step(-1);
    if (index == more) step(1);
  });
  setText(u"0"_s);
}

void SpinEdit::setRange(int least, int most) {
  least_ = least;
  most_ = most;
}

int SpinEdit::value() const { return int(editValue().toInteger()); }

void SpinEdit::setValue(int value) { setText(QString::number(value)); }

void SpinEdit::setEditValue(const Value& value) {
  if (value.isNull())
    clear();
  else
    setText(QString::number(value.toInteger()));
}

void SpinEdit::resetEdit(int) {
  setValue(0);
  setErrorText({});
}

Value SpinEdit::parsed(const QString& text) const {
  bool whole = false;
  const qint64 number = text.toLongLong(&whole);
  return whole && number >= least_ && number <= most_ ? Value(number) : Value();
}

QString SpinEdit::shown(const Value& value) const { return value.toText(); }

QString SpinEdit::complaintOf(const QString& text) const {
  return u"%1, %2 ile %3 arasında bir tam sayı değil."_s.arg(quoted(text), QString::number(least_), QString::number(most_));
}

bool SpinEdit::takes(QChar character) const {
  return (character >= u'0' && character <= u'9') || (character == u'-' && least_ < 0);
}

void SpinEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  if (!isReadOnly() && (key == Qt::Key_Up || key == Qt::Key_Down) && (modifiers & ~Qt::KeypadModifier) == Qt::NoModifier) {
    step(key == Qt::Key_Up ? 1 : -1);
    key = 0;
    return;
  }
  ParsedEdit::keyDown(key, modifiers);
}

bool SpinEdit::wheelSteps(int steps) {
  step(steps);
  return true;
}

/// From a text that is no number of the range nothing is stepped.
void SpinEdit::step(int by) {
  const Value now = isEmpty() ? Value(0) : parsed(text().trimmed());
  if (now.isNull() || isReadOnly()) return;
  const qint64 next = std::clamp<qint64>(now.toInteger() + by, least_, most_);
  setValue(int(next));
  line()->selectAll();
  Q_EMIT textEdited(text());
}
