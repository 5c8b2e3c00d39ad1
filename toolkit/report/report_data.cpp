#include "toolkit/report/report_data.h"

#include "base/date_text.h"
#include "base/number_text.h"
#include "base/text_tools.h"
#include "toolkit/report/report_expression.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

template <class Moment>
QString momentText(const Moment& moment, const QString& format, QString (*usual)(Moment)) {
  return format.isEmpty() || !moment.isValid() ? usual(moment) : QLocale(QLocale::Turkish).toString(moment, format);
}

}  // namespace

QString ReportValues::toText(const ReportValue& value, const QString& format) {
  if (const auto* text = std::get_if<QString>(&value)) return *text;
  if (const auto* number = std::get_if<double>(&value))
    return format.isEmpty() ? NumberText::fromDouble(*number) : NumberText::formatted(format, *number);
  if (const auto* yes = std::get_if<bool>(&value)) return *yes ? u"Evet"_s : u"Hayır"_s;
  if (const auto* date = std::get_if<QDate>(&value)) return momentText(*date, format, DateText::date);
  if (const auto* time = std::get_if<QTime>(&value)) return momentText(*time, format, DateText::time);
  if (const auto* moment = std::get_if<QDateTime>(&value))
    return format.isEmpty() ? DateText::dateTime(*moment) : QLocale(QLocale::Turkish).toString(*moment, format);
  return {};
}

QString ReportData::folded(const QString& name) { return TextTools::LoginTrBuyukHarf(name); }

QString ReportData::quoted(const QString& text) { return u"'"_s + QString(text).replace(u"'"_s, u"''"_s) + u"'"_s; }

ReportVariable& ReportData::variable(const QString& name) {
  const QString key = folded(name);
  if (!variablePlaces_.contains(key)) {
    variablePlaces_.insert(key, int(variables_.size()));
    variables_.push_back({.name = name, .explanation = {}});
  }
  return variables_[size_t(variablePlaces_.value(key))];
}

void ReportData::declareVariable(const QString& name, const QString& explanation) { variable(name).explanation = explanation; }

void ReportData::setExpression(const QString& name, const QString& expression) {
  ReportValue value = Expression(expression).evaluate(EvaluationContext());
  variable(name).value = std::move(value);
}

void ReportData::clearValues() {
  for (ReportVariable& each : variables_) each.value = {};
}

void ReportData::addRows(const QString& name, std::shared_ptr<ReportRows> rows, const QString& explanation) {
  ReportDataSet made{.name = name, .explanation = explanation, .rows = std::move(rows), .fields = {}};
  const QStringList fields = made.rows->fields();
  for (qsizetype field = 0; field < fields.size(); ++field) made.fields.insert(folded(fields[field]), int(field));
  const int place = findRows(folded(name));
  if (place >= 0) {
    dataSets_[size_t(place)] = std::move(made);
    return;
  }
  rowPlaces_.insert(folded(name), int(dataSets_.size()));
  dataSets_.push_back(std::move(made));
}
