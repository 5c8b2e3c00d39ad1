#pragma once

#include <QStringList>

#include <vector>

/// One record of a text of separated values.
struct CsvRecord {
  int line = 0;               ///< of the file, from 1, where the record begins
  QStringList cells;
  bool isUnclosed = false;    ///< a quotation mark is never closed: the rest of the file is in the last cell
};

namespace CsvText {

/// The bytes of a file as text: UTF-8, with or without its mark, otherwise the Turkish Windows code page. Throws Exception
/// for what is no text in either.
QString decoded(const QByteArray& bytes);

/// ";", "," or the tab, whichever the header line has most of outside quotation marks; ";" when it has none.
QChar separatorOf(QStringView header);

/// The records of a text. A cell in quotation marks may hold separators, line breaks and doubled quotation marks. Lines
/// without any text are left out.
std::vector<CsvRecord> records(const QString& text, QChar separator);

}  // namespace CsvText
