#include "toolkit/edits/date_time_edit.h"

#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/time_edit.h"

using namespace Qt::StringLiterals;

namespace {

QString complaintAbout(const QString& text) { return u"%1 geçerli bir tarih ve saat değil."_s.arg(quoted(text)); }

}  // namespace

DateTimeEdit::DateTimeEdit(QWidget* parent) : ParsedEdit(parent) {}

QDateTime DateTimeEdit::dateTime() const {
  const Value value = editValue();
  return value.isNull() ? QDateTime() : std::get<QDateTime>(value.data());
}

void DateTimeEdit::setDateTime(const QDateTime& moment) { setText(DateText::dateTime(moment)); }

void DateTimeEdit::setEditValue(const Value& value) {
  if (const auto* moment = std::get_if<QDateTime>(&value.data())) return setDateTime(*moment);
  const auto* text = std::get_if<QString>(&value.data());
  if (!text || text->trimmed().isEmpty()) {
    const QDate date = value.toDate();
    return setDateTime(date.isValid() ? QDateTime(date, QTime(0, 0)) : QDateTime());
  }
  const auto moment = DateText::toDateTime(*text);
  if (!moment) throw EConvertError(complaintAbout(*text));
  setDateTime(*moment);
}

Value DateTimeEdit::parsed(const QString& text) const { return DateText::toDateTime(text).value_or(QDateTime()); }

QString DateTimeEdit::shown(const Value& value) const { return DateText::dateTime(std::get<QDateTime>(value.data())); }

QString DateTimeEdit::complaintOf(const QString& text) const { return complaintAbout(text); }

bool DateTimeEdit::takes(QChar character) const {
  return (character >= u'0' && character <= u'9') || u"./-: "_s.contains(character);
}

Value DateTimeEdit::stepped(const Value& from, int part, int by) const {
  QDateTime moment = std::get<QDateTime>(from.data());
  constexpr int partsOfDate = 3;
  if (part >= partsOfDate) {
    moment.setTime(steppedTime(moment.time(), part - partsOfDate, by));
    return moment;
  }
  const QDate date = steppedDate(moment.date(), part, by);
  return date.isValid() ? Value(QDateTime(date, moment.time())) : Value();
}

Value DateTimeEdit::firstStep(int) const { return environment().now(); }
