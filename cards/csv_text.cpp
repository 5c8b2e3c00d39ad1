#include "cards/csv_text.h"

#include "base/data/latin5.h"
#include "base/exceptions.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Reads one text from its beginning to its end.
class CsvReader {
 public:
  CsvReader(const QString& text, QChar separator) : text_(text), separator_(separator) {}

  std::vector<CsvRecord> all() {
    std::vector<CsvRecord> records;
    while (place_ < text_.size()) {
      CsvRecord record = next();
      const bool isBlank = std::all_of(record.cells.begin(), record.cells.end(), [](const QString& cell) { return cell.isEmpty(); });
      if (!isBlank || record.isUnclosed) records.push_back(std::move(record));
    }
    return records;
  }

 private:
  CsvRecord next() {
    CsvRecord record;
    record.line = line_;
    for (;;) {
      while (place_ < text_.size() && (text_[place_] == u' ' || text_[place_] == u'\u00A0')) ++place_;
      const bool isQuoted = place_ < text_.size() && text_[place_] == u'"';
      const QString inQuotes = isQuoted ? quoted(record) : QString();
      record.cells += (inQuotes + plain()).trimmed();
      if (place_ == text_.size()) return record;
      if (text_[place_] == separator_) {
        ++place_;
        continue;
      }
      endLine();
      return record;
    }
  }

  /// What stands between the quotation marks at the place; ends behind the closing one.
  QString quoted(CsvRecord& record) {
    QString cell;
    for (++place_; place_ < text_.size(); ++place_) {
      const QChar character = text_[place_];
      if (character == u'"') {
        if (place_ + 1 == text_.size() || text_[place_ + 1] != u'"') {
          ++place_;
          return cell;
        }
        ++place_;
      }
      if (character == u'\n') ++line_;
      cell += character;
    }
    record.isUnclosed = true;
    return cell;
  }

  QString plain() {
    const qsizetype begin = place_;
    while (place_ < text_.size() && text_[place_] != separator_ && text_[place_] != u'\n' && text_[place_] != u'\r') ++place_;
    return text_.mid(begin, place_ - begin);
  }

  void endLine() {
    if (text_[place_] == u'\r' && place_ + 1 < text_.size() && text_[place_ + 1] == u'\n') ++place_;
    ++place_;
    ++line_;
  }

  const QString& text_;
  QChar separator_;
  qsizetype place_ = 0;
  int line_ = 1;
};

}  // namespace

QString CsvText::decoded(const QByteArray& bytes) {
  if (bytes.contains('\0')) throw Exception(u"the file is no text in UTF-8 or in the Turkish Windows code page"_s);
  QStringDecoder utf8(QStringDecoder::Utf8);
  const QString text = utf8(bytes);
  return utf8.hasError() ? Latin5::decode(bytes) : text;
}

QChar CsvText::separatorOf(QStringView header) {
  QChar most = u';';
  qsizetype highest = 0;
  for (const QChar candidate : {u';', u',', u'\t'}) {
    qsizetype count = 0;
    bool inQuotes = false;
    for (const QChar character : header) {
      if (character == u'"') inQuotes = !inQuotes;
      if (character == candidate && !inQuotes) ++count;
    }
    if (count > highest) {
      most = candidate;
      highest = count;
    }
  }
  return most;
}

std::vector<CsvRecord> CsvText::records(const QString& text, QChar separator) { return CsvReader(text, separator).all(); }
