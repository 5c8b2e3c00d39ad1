#include "base/number_text.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

/// Only digits, with "." before every third of them from the right: "1.250.000".
bool isGrouped(QStringView whole) {
  const auto groups = whole.split(u'.');
  if (groups.first().isEmpty() || groups.first().size() > 3) return false;
  for (qsizetype i = 1; i < groups.size(); ++i)
    if (groups[i].size() != 3) return false;
  return true;
}

QString withThousands(const QString& digits) {
  QString result = digits;
  for (qsizetype place = digits.size() - 3; place > 0; place -= 3) result.insert(place, u'.');
  return result;
}

/// One part of a display format taken apart.
struct Pattern {
  QString before;
  QString after;
  bool thousands = false;
  int least = 0;      ///< digits behind the mark that are always shown
  int most = 0;       ///< digits behind the mark at the most
  bool hasNumber = false;
};

Pattern parsed(QStringView part) {
  Pattern pattern;
  bool fraction = false;
  for (const QChar c : part) {
    const bool placeholder = c == u'0' || c == u'#' || (c == u',' && !pattern.hasNumber) || (c == u'.' && pattern.hasNumber && !fraction);
    if (!placeholder || !pattern.after.isEmpty()) {
      (pattern.hasNumber ? pattern.after : pattern.before) += c;
      continue;
    }
    pattern.hasNumber = true;
    if (c == u',') pattern.thousands = true;
    if (fraction) {
      ++pattern.most;
      if (c == u'0') pattern.least = pattern.most;
    }
    if (c == u'.') fraction = true;
  }
  return pattern;
}

/// Half away from zero on the number as people write it: 2.675 has two decimals 2.68 though its double lies below.
QString rounded(double magnitude, int decimals) {
  const QString shortest = QString::number(magnitude, 'f', QLocale::FloatingPointShortest);
  const qsizetype mark = shortest.indexOf(u'.');
  if (mark < 0 || shortest.size() - mark - 1 <= decimals) return QString::number(magnitude, 'f', decimals);
  QString digits = shortest.left(mark + 1 + decimals);
  if (digits.endsWith(u'.')) digits.chop(1);
  if (shortest[mark + 1 + decimals] < u'5') return digits;
  for (qsizetype i = digits.size() - 1; i >= 0; --i) {
    if (digits[i] == u'.') continue;
    if (digits[i] != u'9') {
      digits[i] = QChar(digits[i].unicode() + 1);
      return digits;
    }
    digits[i] = u'0';
  }
  return u'1' + digits;
}

}  // namespace

QString NumberText::fromDouble(double number) {
  return QString::number(number, 'f', QLocale::FloatingPointShortest).replace(u'.', u',');
}

std::optional<QString> NumberText::toDecimal(const QString& text) {
  QString digits = text.trimmed();
  const bool negative = digits.startsWith(u'-');
  if (negative || digits.startsWith(u'+')) digits.remove(0, 1);
  const qsizetype comma = digits.indexOf(u',');
  if (comma >= 0) {
    QString whole = digits.left(comma);
    if (whole.contains(u'.') && !isGrouped(whole)) return std::nullopt;
    digits = whole.remove(u'.') + u'.' + digits.mid(comma + 1);
  } else if (isGrouped(digits) && !digits.startsWith(u'0')) {
    digits.remove(u'.');
  }
  if (digits.endsWith(u'.')) digits.chop(1);
  if (digits.startsWith(u'.')) digits.prepend(u'0');
  if (digits.isEmpty() || digits.count(u'.') > 1) return std::nullopt;
  for (const QChar c : std::as_const(digits))
    if (!isDigit(c) && c != u'.') return std::nullopt;
  return negative ? u'-' + digits : digits;
}

std::optional<double> NumberText::toDouble(const QString& text) {
  const auto plain = toDecimal(text);
  if (!plain) return std::nullopt;
  const double number = plain->toDouble();
  return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

QString NumberText::formatted(const QString& format, double number) {
  const auto parts = QStringView(format).split(u';');
  qsizetype chosen = 0;
  if (number < 0 && parts.size() > 1) chosen = 1;
  if (number == 0 && parts.size() > 2) chosen = 2;
  const Pattern pattern = parsed(parts[chosen]);
  if (!pattern.hasNumber) return pattern.before;

  const QString digits = rounded(std::abs(number), pattern.most);
  QString whole = digits.section(u'.', 0, 0);
  QString fraction = digits.section(u'.', 1);
  while (fraction.size() > pattern.least && fraction.endsWith(u'0')) fraction.chop(1);
  const bool zero = whole == u'0' && fraction.count(u'0') == fraction.size();
  if (pattern.thousands) whole = withThousands(whole);
  const QString sign = number < 0 && chosen == 0 && !zero ? u"-"_s : QString();
  return pattern.before + sign + whole + (fraction.isEmpty() ? QString() : u',' + fraction) + pattern.after;
}
