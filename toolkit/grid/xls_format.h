#pragma once

#include <QString>

#include <optional>

class Value;

/// How the program's values and display formats read in a spreadsheet.
namespace XlsFormat {

/// Number of the first format that a workbook brings along itself.
constexpr int firstOwn = 164;

/// The spreadsheet's code for a display format: ",0.00;-,0.00" is "#,##0.00;-#,##0.00", text in it is quoted. Empty for an
/// empty one.
QString codeOf(const QString& displayFormat);

struct Cell {
  double value = 0;
  QString format = {};  ///< code of a date or time; empty for plain numbers
};
/// A value as a spreadsheet counts it: numbers as they are, days since the end of 1899, times as parts of a day. Nothing for
/// what only a text can hold: texts, dates before March 1900, whole numbers that a double would change.
std::optional<Cell> numberOf(const Value& value);

/// Name of the sheet with that number, from 0: without the characters that it may not have, at most 31 of them.
QString sheetName(const QString& name, int number);

}  // namespace XlsFormat
