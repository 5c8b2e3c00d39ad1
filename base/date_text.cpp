#include "base/date_text.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

int fullYear(const QString& digits) {
  const int year = digits.toInt();
  if (digits.size() > 2) return year;
  return year < 80 ? 2000 + year : 1900 + year;
}

}  // namespace

QString DateText::date(QDate date) { return date.toString(u"dd.MM.yyyy"_s); }
QString DateText::time(QTime time) { return time.toString(u"HH:mm:ss"_s); }
QString DateText::dateTime(const QDateTime& moment) { return moment.toString(u"dd.MM.yyyy HH:mm:ss"_s); }

std::optional<QDate> DateText::toDate(const QString& text) {
  static const QRegularExpression separated(u"^([0-9]{1,2})[./-]([0-9]{1,2})[./-]([0-9]{2}|[0-9]{4})$"_s);
  static const QRegularExpression run(u"^([0-9]{2})([0-9]{2})([0-9]{2}|[0-9]{4})$"_s);
  auto match = separated.match(text.trimmed());
  if (!match.hasMatch()) match = run.match(text.trimmed());
  if (!match.hasMatch()) return std::nullopt;
  const QDate date(fullYear(match.captured(3)), match.captured(2).toInt(), match.captured(1).toInt());
  return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> DateText::toTime(const QString& text) {
  static const QRegularExpression form(u"^([0-9]{1,2})[:.]?([0-9]{2})(?:[:.]?([0-9]{2}))?$"_s);
  const auto match = form.match(text.trimmed());
  if (!match.hasMatch()) return std::nullopt;
  const QTime time(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
  return time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<QDateTime> DateText::toDateTime(const QString& text) {
  const QString trimmed = text.simplified();
  const auto date = toDate(trimmed.section(u' ', 0, 0));
  if (!date) return std::nullopt;
  if (!trimmed.contains(u' ')) return QDateTime(*date, QTime(0, 0));
  const auto time = toTime(trimmed.section(u' ', 1));
  return time ? std::optional(QDateTime(*date, *time)) : std::nullopt;
}
