#include "toolkit/report/expression_functions.h"

#include "base/date_text.h"
#include "base/number_text.h"
#include "base/turkish_text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ExpressionFunctions {

namespace {

constexpr qsizetype mostText = 1'000'000;
constexpr int mostDecimals = 10;

QString text(const ReportValue& value) { return ReportValues::toText(value); }

double rounded(double value, double decimals) {
  const double scale = std::pow(10, std::clamp(decimals, 0.0, double(mostDecimals)));
  return std::round(value * scale) / scale;
}

QString formattedNumber(const std::vector<ReportValue>& values) {
  if (std::holds_alternative<std::monostate>(values[0])) return {};
  if (const auto* own = std::get_if<QString>(&values[0]); own && own->isEmpty()) return {};
  return NumberText::formatted(values.size() > 1 ? text(values[1]) : u",0.00"_s, number(values[0]));
}

/// A text is read as a date when it is one, since most variables come as texts.
QString formattedDate(const std::vector<ReportValue>& values) {
  const QString format = values.size() > 1 ? text(values[1]) : QString();
  const auto* own = std::get_if<QString>(&values[0]);
  if (!own) return ReportValues::toText(values[0], format);
  if (own->isEmpty()) return {};
  if (const auto date = DateText::toDate(*own)) return ReportValues::toText(*date, format);
  if (const auto moment = DateText::toDateTime(*own)) return ReportValues::toText(*moment, format);
  throw ExpressionFault{u"“%1” bir tarih değil"_s.arg(*own)};
}

QString part(const std::vector<ReportValue>& values) {
  const QString whole = text(values[0]);
  const double from = std::clamp(number(values[1]), 1.0, double(whole.size()) + 1);
  const double count = values.size() > 2 ? std::clamp(number(values[2]), 0.0, double(whole.size())) : double(whole.size());
  return whole.mid(qsizetype(from) - 1, qsizetype(count));
}

}  // namespace

const std::vector<FunctionInfo>& all() {
  static const std::vector<FunctionInfo> functions = {
      {Function::Choice, u"EGER"_s, 3, 3, u"EĞER(koşul; doğruysa; değilse)"_s},
      {Function::Sum, u"TOPLAM"_s, 1, 2, u"TOPLAM(değer; koşul)"_s},
      {Function::Count, u"SAY"_s, 1, 2, u"SAY(veri; koşul)"_s},
      {Function::Average, u"ORTALAMA"_s, 1, 2, u"ORTALAMA(değer; koşul)"_s},
      {Function::Least, u"ENAZ"_s, 1, 2, u"ENAZ(değer; koşul)"_s},
      {Function::Most, u"ENCOK"_s, 1, 2, u"ENÇOK(değer; koşul)"_s},
      {Function::Upper, u"BUYUK"_s, 1, 1, u"BÜYÜK(metin)"_s},
      {Function::Lower, u"KUCUK"_s, 1, 1, u"KÜÇÜK(metin)"_s},
      {Function::Number, u"SAYI"_s, 1, 2, u"SAYI(değer; biçim)"_s},
      {Function::Date, u"TARIH"_s, 1, 2, u"TARİH(değer; biçim)"_s},
      {Function::Round, u"YUVARLA"_s, 1, 2, u"YUVARLA(değer; basamak)"_s},
      {Function::Length, u"UZUNLUK"_s, 1, 1, u"UZUNLUK(metin)"_s},
      {Function::Part, u"PARCA"_s, 2, 3, u"PARÇA(metin; kaçıncıdan; kaç harf)"_s},
      {Function::Trim, u"KIRP"_s, 1, 1, u"KIRP(metin)"_s},
      {Function::IsEmpty, u"BOS"_s, 1, 1, u"BOŞ(değer)"_s},
      {Function::WholeNumber, u"TAM"_s, 1, 1, u"TAM(değer)"_s},
  };
  return functions;
}

const FunctionInfo* find(const QString& folded) {
  const auto found = std::find_if(all().begin(), all().end(), [&](const FunctionInfo& each) { return each.name == folded; });
  return found == all().end() ? nullptr : &*found;
}

bool isOverRows(Function function) { return function >= Function::Sum && function <= Function::Most; }

double number(const ReportValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return 0;
  if (const auto* own = std::get_if<double>(&value)) return *own;
  if (const auto* own = std::get_if<bool>(&value)) return *own ? 1 : 0;
  if (const auto* own = std::get_if<QString>(&value)) {
    if (own->isEmpty()) return 0;
    if (const auto read = NumberText::toDouble(*own)) return *read;
  }
  throw ExpressionFault{u"“%1” bir sayı değil"_s.arg(text(value))};
}

bool truth(const ReportValue& value) {
  if (const auto* own = std::get_if<bool>(&value)) return *own;
  if (const auto* own = std::get_if<QString>(&value)) return !own->isEmpty();
  if (const auto* own = std::get_if<double>(&value)) return *own != 0;
  return !std::holds_alternative<std::monostate>(value);
}

int compare(const ReportValue& left, const ReportValue& right) {
  const bool hasText = std::holds_alternative<QString>(left) || std::holds_alternative<QString>(right);
  if (hasText) {
    const int order = TurkishText::fold(text(left)).compare(TurkishText::fold(text(right)));
    return order < 0 ? -1 : order > 0;
  }
  if (const auto* date = std::get_if<QDate>(&left))
    if (const auto* other = std::get_if<QDate>(&right)) return *date < *other ? -1 : *date > *other;
  const double difference = number(left) - number(right);
  return difference < 0 ? -1 : difference > 0;
}

QString joined(const ReportValue& left, const ReportValue& right) {
  QString whole = text(left) + text(right);
  if (whole.size() > mostText) throw ExpressionFault{u"metin çok uzun"_s};
  return whole;
}

double divided(double left, double right) {
  if (right == 0) throw ExpressionFault{u"sıfıra bölünüyor"_s};
  return left / right;
}

double remainder(double left, double right) {
  if (right == 0) throw ExpressionFault{u"sıfıra bölünüyor"_s};
  return std::fmod(left, right);
}

ReportValue call(Function function, const std::vector<ReportValue>& values) {
  switch (function) {
    case Function::Upper: return TurkishText::upper(text(values[0]));
    case Function::Lower: return TurkishText::lower(text(values[0]));
    case Function::Number: return formattedNumber(values);
    case Function::Date: return formattedDate(values);
    case Function::Round: return rounded(number(values[0]), values.size() > 1 ? number(values[1]) : 0);
    case Function::Length: return double(text(values[0]).size());
    case Function::Part: return part(values);
    case Function::Trim: return text(values[0]).trimmed();
    case Function::IsEmpty: return text(values[0]).trimmed().isEmpty();
    case Function::WholeNumber: return std::trunc(number(values[0]));
    default: throw ExpressionFault{u"işlev burada kullanılamaz"_s};
  }
}

void Gatherer::add(const ReportValue& value) {
  if (function_ == Function::Count) {
    count_ += truth(value);
    return;
  }
  if (std::holds_alternative<std::monostate>(value)) return;
  const double each = number(value);
  least_ = count_ == 0 ? each : std::min(least_, each);
  most_ = count_ == 0 ? each : std::max(most_, each);
  sum_ += each;
  ++count_;
}

ReportValue Gatherer::result() const {
  switch (function_) {
    case Function::Count: return double(count_);
    case Function::Sum: return sum_;
    case Function::Average: return count_ == 0 ? ReportValue() : ReportValue(sum_ / count_);
    case Function::Least: return count_ == 0 ? ReportValue() : ReportValue(least_);
    default: return count_ == 0 ? ReportValue() : ReportValue(most_);
  }
}

}  // namespace ExpressionFunctions
