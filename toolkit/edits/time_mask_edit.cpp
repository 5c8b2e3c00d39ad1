#include "toolkit/edits/time_mask_edit.h"

#include "base/data/value.h"
#include "base/date_text.h"
#include "base/exceptions.h"

using namespace Qt::StringLiterals;

TimeMaskEdit::TimeMaskEdit(QWidget* parent) : MaskEdit(parent) { setMask(u"99 : 99;_"_s); }

Value TimeMaskEdit::editValue() const {
  if (isEmpty()) return {};
  if (const auto time = DateText::toTime(text().remove(u' '))) return *time;
  throw EConvertError(u"Geçersiz bir değer girildi"_s);
}

void TimeMaskEdit::setEditValue(const Value& value) {
  // What no clock shows leaves the box empty, and stays stored until a time is typed.
  const QTime time = DateText::toTime(value.toText()).value_or(QTime());
  setText(time.isValid() ? time.toString(u"HH : mm"_s) : QString());
}
