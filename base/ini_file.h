#pragma once

#include <QString>

/// Small ini files: "[section]" lines and "key=value" lines, UTF-8. Other lines and keys are kept as they are.
namespace IniFile {

/// Value of a key, without regard to the case of section and key. fallback when file, section or key are missing or the
/// file cannot be read.
QString read(const QString& file, const QString& section, const QString& key, const QString& fallback);

/// Sets a key and keeps everything else; the file is replaced in one step. A value's line breaks become blanks, as a value
/// is one line. Throws EInOutError.
void write(const QString& file, const QString& section, const QString& key, const QString& value);

}  // namespace IniFile
