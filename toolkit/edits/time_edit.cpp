#include "toolkit/edits/time_edit.h"

#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"

using namespace Qt::StringLiterals;

QTime steppedTime(QTime time, int part, int by) {
  constexpr int secondsOf[] = {3600, 60, 1};
  return time.addSecs(by * secondsOf[part]);
}

TimeEdit::TimeEdit(QWidget* parent) : ParsedEdit(parent) {}

QTime TimeEdit::time() const { return editValue().toTime(); }

void TimeEdit::setTime(QTime time) { setText(time.isValid() ? shown(time) : QString()); }

Value TimeEdit::parsed(const QString& text) const { return DateText::toTime(text).value_or(QTime()); }

QString TimeEdit::shown(const Value& value) const {
  const QTime time = value.toTime();
  return time.second() == 0 ? time.toString(u"HH:mm"_s) : DateText::time(time);
}

QString TimeEdit::complaintOf(const QString& text) const { return u"%1 geçerli bir saat değil."_s.arg(quoted(text)); }

bool TimeEdit::takes(QChar character) const { return (character >= u'0' && character <= u'9') || u":."_s.contains(character); }

Value TimeEdit::stepped(const Value& from, int part, int by) const { return steppedTime(from.toTime(), part, by); }

Value TimeEdit::firstStep(int by) const {
  if (start_.isValid()) return steppedTime(start_, 0, by);
  const QTime now = environment().now().time();
  return QTime(now.hour(), now.minute());
}
