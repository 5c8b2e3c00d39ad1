#pragma once

#include <QDateTime>
#include <QString>

#include <variant>

/// Why an expression has no value; the reason is Turkish and meant for whoever writes the template.
struct ExpressionFault {
  QString reason;
  bool operator==(const ExpressionFault&) const = default;
};

/// What an expression comes to. The first alternative is a name that is known and not set.
using ReportValue = std::variant<std::monostate, bool, double, QString, QDate, QTime, QDateTime, ExpressionFault>;

namespace ReportValues {

inline bool isFault(const ReportValue& value) { return std::holds_alternative<ExpressionFault>(value); }

/// The value as it is printed. The format goes for numbers (",0.00") and for dates and times ("dd.MM.yyyy"); empty is the
/// program's own. Not set, and a fault, are the empty text.
QString toText(const ReportValue& value, const QString& format = {});

}  // namespace ReportValues
