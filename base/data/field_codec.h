#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class Value;
struct st_mysql_field;

/// What a column holds, as far as reading and writing it differ.
enum class FieldType { Integer, Double, Decimal, Text, Blob, Date, Time, DateTime };

struct FieldInfo {
  QString name;       ///< as in the result
  QString column;     ///< column in its table; empty for an expression
  QString table;      ///< table that the column stands in; empty for an expression
  QString alias;      ///< name of that table in the statement
  FieldType type = FieldType::Text;
  qint64 size = 0;    ///< characters of a text column, bytes of a blob, digits of a decimal
  int decimals = 0;   ///< digits behind the mark, of a number or of the seconds
  bool isUnsigned = false;
  int bits = 64;      ///< width of an integer column
  bool isKey = false;
  bool isAutoIncrement = false;
  bool isTimestamp = false;  ///< set by the server on every change
  bool isRequired = false;
};

/// A cell's bytes as they travel between client and server; nothing is NULL.
using Cell = std::optional<QByteArray>;

/// Between the bytes of a column and the program's values.
namespace FieldCodec {

FieldInfo describe(const st_mysql_field& field);

/// The value of a cell. What fits no type of its own (a time above a day, a date without a month) comes as text.
Value decode(const FieldInfo& field, QByteArrayView cell);

/// The bytes for a value; text is converted by the column's type. Throws EConvertError for text that does not convert,
/// EUnstorableValue for what the column cannot hold unchanged: characters, length, range, digits.
Cell encode(const FieldInfo& field, const Value& value);

/// True when two cells mean the same value to the column, as "5" and "5.00" do in a decimal one.
bool same(const FieldInfo& field, const Cell& left, const Cell& right);

}  // namespace FieldCodec
