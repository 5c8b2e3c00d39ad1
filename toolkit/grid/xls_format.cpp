#include "toolkit/grid/xls_format.h"

#include "base/data/value.h"

#include <QDateTime>
#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 exactWhole = qint64(1) << 53;
constexpr double secondsPerDay = 86400;
constexpr int longestSheetName = 31;
const QString dayCode = u"dd\\.mm\\.yyyy"_s;
const QString timeCode = u"hh:mm:ss"_s;

/// Days as the spreadsheet counts them; nothing before March 1900, where its calendar has a day too many.
std::optional<double> daysOf(QDate date) {
  if (date < QDate(1900, 3, 1)) return std::nullopt;
  return double(QDate(1899, 12, 30).daysTo(date));
}

double partOfDay(QTime time) { return QTime(0, 0).secsTo(time) / secondsPerDay; }

QString codeOfPart(QStringView part) {
  QString code;
  QString words;
  const auto closeWords = [&] {
    if (!words.isEmpty()) code += u'"' + words.remove(u'"') + u'"';
    words.clear();
  };
  bool thousands = false;
  bool digits = false;
  for (const QChar letter : part) {
    if (letter == u',' && !digits) {
      thousands = true;
    } else if (letter == u'0' || letter == u'#' || (letter == u'.' && digits)) {
      closeWords();
      if (!digits && thousands) code += u"#,##"_s;
      digits = true;
      code += letter;
    } else if (letter == u'-' && !digits) {
      closeWords();
      code += letter;
    } else {
      words += letter;
    }
  }
  closeWords();
  return code;
}

}  // namespace

QString XlsFormat::codeOf(const QString& displayFormat) {
  if (displayFormat.isEmpty()) return {};
  QStringList parts;
  for (const QStringView part : QStringView(displayFormat).split(u';')) parts += codeOfPart(part);
  return parts.join(u';');
}

std::optional<XlsFormat::Cell> XlsFormat::numberOf(const Value& value) {
  if (const auto* whole = std::get_if<qint64>(&value.data())) {
    if (*whole > exactWhole || *whole < -exactWhole) return std::nullopt;
    return Cell{double(*whole)};
  }
  if (const auto* number = std::get_if<double>(&value.data()); number != nullptr && std::isfinite(*number))
    return Cell{*number};
  if (const auto* decimal = std::get_if<Decimal>(&value.data())) return Cell{decimal->text.toDouble()};
  if (const auto* date = std::get_if<QDate>(&value.data())) {
    const auto days = daysOf(*date);
    return days ? std::optional(Cell{*days, dayCode}) : std::nullopt;
  }
  if (const auto* time = std::get_if<QTime>(&value.data())) return Cell{partOfDay(*time), timeCode};
  if (const auto* moment = std::get_if<QDateTime>(&value.data())) {
    const auto days = daysOf(moment->date());
    return days ? std::optional(Cell{*days + partOfDay(moment->time()), dayCode + u' ' + timeCode}) : std::nullopt;
  }
  return std::nullopt;
}

QString XlsFormat::sheetName(const QString& name, int number) {
  QString clean;
  for (const QChar letter : name)
    if (!u"[]:*?/\\'"_s.contains(letter)) clean += letter;
  const QString suffix = number == 0 ? QString() : u" (%1)"_s.arg(number + 1);
  clean = clean.left(longestSheetName - suffix.size()).trimmed();
  return (clean.isEmpty() ? u"Sayfa"_s : clean) + suffix;
}
