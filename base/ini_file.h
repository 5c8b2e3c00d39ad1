#pragma once

#include <QList>
#include <QString>

/// Small ini files: "[section]" lines and "key=value" lines, UTF-8; lines in the Turkish code page of older files are read
/// as well. A value is all that stands behind the mark, blanks included; where a blank stands before the mark, one behind
/// it belongs to the mark. Other lines and keys are kept as they are.
namespace IniFile {

struct Entry {
  QString section;
  QString key;
  QString value;
};

/// Every key with its value, from first to last; none when the file is missing, cannot be read or is no small one.
QList<Entry> entries(const QString& file);

/// Value of a key, without regard to the case of section and key; of several sections of one name the first counts.
/// fallback when file, section or key are missing or the file cannot be read.
QString read(const QString& file, const QString& section, const QString& key, const QString& fallback);

/// Sets a key and keeps everything else; the file is replaced in one step. A value's line breaks become blanks, as a value
/// is one line. Throws EInOutError.
void write(const QString& file, const QString& section, const QString& key, const QString& value);

/// The same for several keys: all are set, or none.
void write(const QString& file, const QList<Entry>& entries);

/// Replaces the file by these entries. Throws EInOutError.
void replace(const QString& file, const QList<Entry>& entries);

}  // namespace IniFile
