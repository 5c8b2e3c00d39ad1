#include "base/data/value.h"

#include "base/data/latin5.h"
#include "base/date_text.h"
#include "base/exceptions.h"
#include "base/number_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

template <class... Cases>
struct Match : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Match(Cases...) -> Match<Cases...>;

[[noreturn]] void notA(const QString& text, const QString& what) {
  throw EConvertError(u"\"%1\" geçerli bir %2 değil."_s.arg(text, what));
}

}  // namespace

Value::Value() = default;
Value::Value(const Value&) = default;
Value::Value(Value&&) noexcept = default;
Value& Value::operator=(const Value&) = default;
Value& Value::operator=(Value&&) noexcept = default;
Value::~Value() = default;
bool Value::operator==(const Value&) const = default;

Value::Value(int number) : data_(qint64(number)) {}
Value::Value(qint64 number) : data_(number) {}
Value::Value(double number) : data_(number) {}
Value::Value(Decimal number) : data_(std::move(number)) {}
Value::Value(const QString& text) : data_(text) {}
Value::Value(const QByteArray& bytes) : data_(bytes) {}
Value::Value(ZeroDate zero) : data_(zero) {}

Value::Value(QDate date) {
  if (date.isValid()) data_ = date;
}

Value::Value(QTime time) {
  if (time.isValid()) data_ = time;
}

Value::Value(const QDateTime& moment) {
  if (moment.isValid()) data_ = moment;
}

QString Value::toText() const {
  return std::visit(Match{[](std::monostate) { return QString(); },
                          [](qint64 number) { return QString::number(number); },
                          [](double number) { return NumberText::fromDouble(number); },
                          [](const Decimal& number) { return QString(number.text).replace(u'.', u','); },
                          [](const QString& text) { return text; },
                          [](const QByteArray& bytes) { return Latin5::decode(bytes); },
                          [](QDate date) { return DateText::date(date); },
                          [](QTime time) { return DateText::time(time); },
                          [](const QDateTime& moment) { return DateText::dateTime(moment); },
                          [](ZeroDate) { return QString(); }},
                    data_);
}

double Value::toDouble() const {
  if (const auto* number = std::get_if<qint64>(&data_)) return double(*number);
  if (const auto* number = std::get_if<double>(&data_)) return *number;
  if (const auto* number = std::get_if<Decimal>(&data_)) return number->text.toDouble();
  const QString text = toText().trimmed();
  if (text.isEmpty()) return 0;
  const auto number = NumberText::toDouble(text);
  if (!number) notA(text, u"sayı"_s);
  return *number;
}

qint64 Value::toInteger() const {
  if (const auto* number = std::get_if<qint64>(&data_)) return *number;
  const QString text = toText().trimmed();
  if (text.isEmpty()) return 0;
  bool whole = false;
  const qint64 exact = text.toLongLong(&whole);
  if (whole) return exact;
  const double number = toDouble();
  if (std::floor(number) != number || std::abs(number) > 9.0e15) notA(text, u"tam sayı"_s);
  return qint64(number);
}

QDate Value::toDate() const {
  if (const auto* date = std::get_if<QDate>(&data_)) return *date;
  if (const auto* moment = std::get_if<QDateTime>(&data_)) return moment->date();
  const QString text = toText().trimmed();
  if (text.isEmpty()) return {};
  const auto date = DateText::toDate(text);
  if (!date) notA(text, u"tarih"_s);
  return *date;
}

QTime Value::toTime() const {
  if (const auto* time = std::get_if<QTime>(&data_)) return *time;
  if (const auto* moment = std::get_if<QDateTime>(&data_)) return moment->time();
  const QString text = toText().trimmed();
  if (text.isEmpty()) return {};
  const auto time = DateText::toTime(text);
  if (!time) notA(text, u"saat"_s);
  return *time;
}
