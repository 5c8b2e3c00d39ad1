#include "toolkit/edits/date_time_edit.h"

#include "app/date_text.h"

using namespace Qt::StringLiterals;

DateTimeEdit::DateTimeEdit(QWidget* parent) : ParsedEdit(parent) {}

QDateTime DateTimeEdit::dateTime() const {
  const Value value = editValue();
  return value.isNull() ? QDateTime() : std::get<QDateTime>(value.data());
}

void DateTimeEdit::setDateTime(const QDateTime& moment) { setText(DateText::dateTime(moment)); }

void DateTimeEdit::setEditValue(const Value& value) {
  const QDate date = value.toDate();
  if (const auto* moment = std::get_if<QDateTime>(&value.data()))
    setDateTime(*moment);
  else if (const auto* text = std::get_if<QString>(&value.data()))
    setDateTime(DateText::toDateTime(*text).value_or(QDateTime()));
  else
    setDateTime(date.isValid() ? QDateTime(date, QTime(0, 0)) : QDateTime());
}

Value DateTimeEdit::parsed(const QString& text) const { return DateText::toDateTime(text).value_or(QDateTime()); }

QString DateTimeEdit::shown(const Value& value) const { return DateText::dateTime(std::get<QDateTime>(value.data())); }

QString DateTimeEdit::complaint() const { return u"\"%1\" geçerli bir tarih ve saat değil."_s.arg(text()); }

bool DateTimeEdit::takes(QChar character) const {
  return (character >= u'0' && character <= u'9') || u"./-: "_s.contains(character);
}
