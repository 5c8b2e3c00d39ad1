#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Dates and times as the program shows and reads them. An invalid date or time is the empty text.
namespace DateText {

QString date(QDate date);                  ///< "dd.MM.yyyy"
QString time(QTime time);                  ///< "HH:mm:ss"
QString dateTime(const QDateTime& moment); ///< "dd.MM.yyyy HH:mm:ss"

/// Reads "5.3.2020", "05/03/2020", "05-03-2020", "05032020", "5.3.20" (years 00 to 79 are 20xx). Nothing for a text that is
/// no date of the calendar.
std::optional<QDate> toDate(const QString& text);
/// Reads "8:30", "08:30:15", "0830". Nothing for a text that is no time of day.
std::optional<QTime> toTime(const QString& text);
/// Reads a date, or a date and a time with blanks between them.
std::optional<QDateTime> toDateTime(const QString& text);

}  // namespace DateText
