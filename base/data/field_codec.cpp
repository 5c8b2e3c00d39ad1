#include "base/data/field_codec.h"

#include "base/data/latin5.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/exceptions.h"
#include "base/number_text.h"

#include <mysql.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned binaryCharset = 63;

[[noreturn]] void doesNotFit(const FieldInfo& field, const QString& why) {
  throw EUnstorableValue(u"\"%1\" alanına girilen değer saklanamaz: %2."_s.arg(field.name, why), field.name);
}

FieldType typeOf(const MYSQL_FIELD& field) {
  switch (field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_YEAR:
      return FieldType::Integer;
    case MYSQL_TYPE_LONGLONG:
      return (field.flags & UNSIGNED_FLAG) != 0 ? FieldType::Decimal : FieldType::Integer;
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return FieldType::Double;
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return FieldType::Decimal;
    case MYSQL_TYPE_DATE:
    case MYSQL_TYPE_NEWDATE:
      return FieldType::Date;
    case MYSQL_TYPE_TIME:
      return FieldType::Time;
    case MYSQL_TYPE_DATETIME:
    case MYSQL_TYPE_TIMESTAMP:
      return FieldType::DateTime;
    case MYSQL_TYPE_NULL:
      return FieldType::Text;
    default:
      return field.charsetnr == binaryCharset ? FieldType::Blob : FieldType::Text;
  }
}

int bitsOf(enum_field_types type) {
  switch (type) {
    case MYSQL_TYPE_TINY:
      return 8;
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_YEAR:
      return 16;
    case MYSQL_TYPE_INT24:
      return 24;
    case MYSQL_TYPE_LONG:
      return 32;
    default:
      return 64;
  }
}

/// Digits at a fixed place; -1 when one of them is none.
int digits(QByteArrayView text, qsizetype begin, qsizetype count) {
  int number = 0;
  for (qsizetype i = begin; i < begin + count; ++i) {
    if (i >= text.size() || text[i] < '0' || text[i] > '9') return -1;
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

QDate dateOf(QByteArrayView text) { return {digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2)}; }

QTime timeOf(QByteArrayView text) {
  int milliseconds = 0;
  int unit = 100;
  for (qsizetype i = 9; i < text.size() && unit > 0; ++i, unit /= 10) milliseconds += (text[i] - '0') * unit;
  return {digits(text, 0, 2), digits(text, 3, 2), digits(text, 6, 2), milliseconds};
}

Value decodedDate(QByteArrayView cell) {
  if (cell.startsWith("0000-00-00")) return ZeroDate{};
  const QDate date = dateOf(cell);
  return date.isValid() ? Value(date) : Value(Latin5::decode(cell));
}

Value decodedTime(QByteArrayView cell) {
  const QTime time = cell.size() >= 8 && cell[2] == ':' ? timeOf(cell) : QTime();
  return time.isValid() ? Value(time) : Value(Latin5::decode(cell));
}

Value decodedMoment(QByteArrayView cell) {
  if (cell.startsWith("0000-00-00")) return ZeroDate{};
  // A moment that the local clock skipped at a change to summer time is still shown as it stands.
  const QDateTime moment(dateOf(cell), timeOf(cell.sliced(qMin(qsizetype(11), cell.size()))));
  return moment.isValid() ? Value(moment) : Value(Latin5::decode(cell));
}

/// Fraction digits as far as the column keeps them; none when they are zero.
QByteArray fraction(const FieldInfo& field, QTime time) {
  if (field.decimals == 0) return {};
  const QByteArray milliseconds = QByteArray::number(time.msec() + 1000).mid(1);
  return "." + milliseconds.leftJustified(field.decimals, '0', true);
}

QByteArray timeBytes(const FieldInfo& field, QTime time) { return time.toString(u"HH:mm:ss").toLatin1() + fraction(field, time); }

Cell encodedInteger(const FieldInfo& field, const Value& value) {
  const qint64 number = value.toInteger();
  if (field.bits < 64) {
    const qint64 limit = qint64(1) << (field.isUnsigned ? field.bits : field.bits - 1);
    if (number >= limit || number < (field.isUnsigned ? 0 : -limit)) doesNotFit(field, u"sayı çok büyük"_s);
  }
  return QByteArray::number(number);
}

Cell encodedDouble(const FieldInfo& field, const Value& value) {
  const double number = value.toDouble();
  if (!std::isfinite(number)) doesNotFit(field, u"sayı değil"_s);
  return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

/// Sign, digits before and digits behind the mark, without zeros that carry nothing.
struct DecimalParts {
  bool negative = false;
  QByteArray whole;
  QByteArray fraction;
  bool operator==(const DecimalParts&) const = default;
};

DecimalParts decimalParts(QByteArrayView text) {
  DecimalParts parts;
  qsizetype begin = 0;
  if (text.startsWith('-') || text.startsWith('+')) begin = 1;
  qsizetype mark = text.indexOf('.');
  if (mark < 0) mark = text.size();
  while (begin < mark && text[begin] == '0') ++begin;
  parts.whole = text.sliced(begin, mark - begin).toByteArray();
  qsizetype end = text.size();
  while (end > mark + 1 && text[end - 1] == '0') --end;
  if (end > mark + 1) parts.fraction = text.sliced(mark + 1, end - mark - 1).toByteArray();
  parts.negative = text.startsWith('-') && !(parts.whole.isEmpty() && parts.fraction.isEmpty());
  return parts;
}

Cell encodedDecimal(const FieldInfo& field, const Value& value) {
  QByteArray text;
  if (const auto* exact = std::get_if<Decimal>(&value.data())) {
    text = exact->text.toLatin1();
  } else if (const auto* number = std::get_if<double>(&value.data())) {
    if (!std::isfinite(*number)) doesNotFit(field, u"sayı değil"_s);
    text = QByteArray::number(*number, 'f', QLocale::FloatingPointShortest);
  } else {
    const auto plain = NumberText::toDecimal(value.toText().trimmed());
    if (!plain) throw EConvertError(u"\"%1\" geçerli bir sayı değil."_s.arg(value.toText()));
    text = plain->toLatin1();
  }
  const DecimalParts parts = decimalParts(text);
  if (parts.whole.size() > field.size - field.decimals) doesNotFit(field, u"sayı çok büyük"_s);
  if (parts.fraction.size() > field.decimals)
    doesNotFit(field, u"virgülden sonra en fazla %1 basamak olabilir"_s.arg(field.decimals));
  return text;
}

Cell encodedText(const FieldInfo& field, const Value& value) {
  const QByteArray bytes = Latin5::encode(value.toText(), field.name);
  if (bytes.size() > field.size) doesNotFit(field, u"en fazla %1 karakter olabilir"_s.arg(field.size));
  return bytes;
}

Cell encodedMoment(const FieldInfo& field, const Value& value) {
  QDateTime moment;
  if (const auto* exact = std::get_if<QDateTime>(&value.data())) {
    moment = *exact;
  } else if (const auto* date = std::get_if<QDate>(&value.data())) {
    moment = QDateTime(*date, QTime(0, 0));
  } else {
    const auto converted = DateText::toDateTime(value.toText().trimmed());
    if (!converted) throw EConvertError(u"\"%1\" geçerli bir tarih değil."_s.arg(value.toText()));
    moment = *converted;
  }
  return moment.date().toString(Qt::ISODate).toLatin1() + ' ' + timeBytes(field, moment.time());
}

bool isEmptyText(const Value& value) {
  const auto* text = std::get_if<QString>(&value.data());
  return text != nullptr && text->trimmed().isEmpty();
}

}  // namespace

FieldInfo FieldCodec::describe(const st_mysql_field& field) {
  FieldInfo info;
  info.name = Latin5::decode({field.name, qsizetype(field.name_length)});
  info.column = Latin5::decode({field.org_name, qsizetype(field.org_name_length)});
  info.table = Latin5::decode({field.org_table, qsizetype(field.org_table_length)});
  info.alias = Latin5::decode({field.table, qsizetype(field.table_length)});
  info.type = typeOf(field);
  info.isUnsigned = (field.flags & UNSIGNED_FLAG) != 0;
  info.bits = bitsOf(field.type);
  info.decimals = field.decimals > 30 ? 0 : int(field.decimals);
  info.size = qint64(field.length);
  // A decimal's length counts its sign and its mark as well.
  if (info.type == FieldType::Decimal) info.size -= (info.decimals > 0 ? 1 : 0) + (info.isUnsigned ? 0 : 1);
  info.isKey = (field.flags & PRI_KEY_FLAG) != 0;
  info.isAutoIncrement = (field.flags & AUTO_INCREMENT_FLAG) != 0;
  info.isTimestamp = field.type == MYSQL_TYPE_TIMESTAMP && (field.flags & ON_UPDATE_NOW_FLAG) != 0;
  info.isRequired = (field.flags & NOT_NULL_FLAG) != 0;
  return info;
}

Value FieldCodec::decode(const FieldInfo& field, QByteArrayView cell) {
  switch (field.type) {
    case FieldType::Integer:
      return cell.toByteArray().toLongLong();
    case FieldType::Double:
      return cell.toByteArray().toDouble();
    case FieldType::Decimal:
      return Decimal{QString::fromLatin1(cell)};
    case FieldType::Blob:
      return cell.toByteArray();
    case FieldType::Date:
      return decodedDate(cell);
    case FieldType::Time:
      return decodedTime(cell);
    case FieldType::DateTime:
      return decodedMoment(cell);
    case FieldType::Text:
      break;
  }
  return Latin5::decode(cell);
}

Cell FieldCodec::encode(const FieldInfo& field, const Value& value) {
  if (value.isNull()) return std::nullopt;
  if (field.type == FieldType::Text) return encodedText(field, value);
  if (field.type == FieldType::Blob) {
    const auto* bytes = std::get_if<QByteArray>(&value.data());
    return bytes != nullptr ? *bytes : Latin5::encode(value.toText(), field.name);
  }
  if (isEmptyText(value)) return std::nullopt;
  const bool zero = std::holds_alternative<ZeroDate>(value.data());
  switch (field.type) {
    case FieldType::Integer:
      return encodedInteger(field, value);
    case FieldType::Double:
      return encodedDouble(field, value);
    case FieldType::Decimal:
      return encodedDecimal(field, value);
    case FieldType::Date:
      return zero ? "0000-00-00"_ba : value.toDate().toString(Qt::ISODate).toLatin1();
    case FieldType::Time:
      return timeBytes(field, value.toTime());
    default:
      return zero ? "0000-00-00 00:00:00"_ba : encodedMoment(field, value);
  }
}

bool FieldCodec::same(const FieldInfo& field, const Cell& left, const Cell& right) {
  if (left == right) return true;
  if (!left || !right) return false;
  if (field.type == FieldType::Double) return left->toDouble() == right->toDouble();
  if (field.type == FieldType::Decimal) return decimalParts(*left) == decimalParts(*right);
  return false;
}
