#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

/// Bytes of a BIFF8 stream: records of a number, a length and little-endian data.
class BiffStream {
 public:
  /// Begins a record; its length is filled in by end.
  void begin(quint16 number);
  void end();
  void byte(quint8 value) { bytes_.append(char(value)); }
  void word(quint16 value);
  void dword(quint32 value);
  void real(double value);
  /// A text with a length of one or two bytes before it, in 8-bit letters where all of them are.
  void shortText(const QString& text);
  void longText(const QString& text);
  void empty(quint16 number) {
    begin(number);
    end();
  }

  const QByteArray& bytes() const { return bytes_; }
  qsizetype size() const { return bytes_.size(); }
  void append(const BiffStream& other) { bytes_ += other.bytes_; }
  /// Overwrites four bytes.
  void patch(qsizetype place, quint32 value);

  /// Most bytes of data in one record.
  static constexpr int recordLimit = 8224;

 private:
  void letters(const QString& text);

  QByteArray bytes_;
  qsizetype lengthPlace_ = 0;
};

/// The texts of a workbook, each of them once.
class BiffTexts {
 public:
  /// Number by which cells refer to a text.
  int numberOf(const QString& text);
  /// The table of all texts; it goes on in further records where one is full.
  void write(BiffStream& stream) const;

 private:
  QHash<QString, int> numbers_;
  QStringList texts_;
  quint32 uses_ = 0;
};
