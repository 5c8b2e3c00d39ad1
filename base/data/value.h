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

  // All compiled once: the variant's parts cost every file that uses them dear.
  Value();
  Value(int number);
  Value(qint64 number);
  Value(double number);
  Value(Decimal number);
  Value(const QString& text);
  Value(const QByteArray& bytes);
  Value(QDate date);
  Value(QTime time);
  Value(const QDateTime& moment);
  Value(ZeroDate zero);
  Value(bool) = delete;
  Value(const char*) = delete;
  Value(const Value&);
  Value(Value&&) noexcept;
  Value& operator=(const Value&);
  Value& operator=(Value&&) noexcept;
  ~Value();

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

  bool operator==(const Value&) const;

 private:
  Data data_;
};
