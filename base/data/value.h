#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <variant>

/// A decimal number as its exact text: optional "-", digits, optional "." and digits.
struct Decimal {
  QString text;
  bool operator==(const Decimal&) const = default;
};

/// The date 0000-00-00, which the server keeps apart from NULL.
struct ZeroDate {
  bool operator==(const ZeroDate&) const = default;
};

/// One value on its way to or from a column: NULL, or exactly one of the types below.
/// An invalid QDate, QTime or QDateTime makes NULL.
class Value {
 public:
  using Data = std::variant<std::monostate, qint64, double, Decimal, QString, QByteArray, QDate, QTime, QDateTime, ZeroDate>;

  Value() = default;
  Value(int number) : data_(qint64(number)) {}
  Value(qint64 number) : data_(number) {}
  Value(double number) : data_(number) {}
  Value(Decimal number) : data_(std::move(number)) {}
  Value(const QString& text) : data_(text) {}
  Value(const QByteArray& bytes) : data_(bytes) {}
  Value(QDate date);
  Value(QTime time);
  Value(const QDateTime& moment);
  Value(ZeroDate zero) : data_(zero) {}
  Value(bool) = delete;
  Value(const char*) = delete;

  bool isNull() const { return data_.index() == 0; }
  const Data& data() const { return data_; }

  /// As the screen shows it: "," as decimal mark, dates "dd.MM.yyyy", times "HH:mm:ss"; NULL and the zero date are empty.
  QString toText() const;
  /// The number in it; NULL and empty text are 0. Throws EConvertError for a text that is no number.
  double toDouble() const;
  qint64 toInteger() const;
  /// Invalid when NULL, zero or empty text. Throws EConvertError for a text that is no date or time.
  QDate toDate() const;
  QTime toTime() const;

  bool operator==(const Value&) const = default;

 private:
  Data data_;
};
