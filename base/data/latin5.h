#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The one edge between the program's text and the database's latin5: ISO 8859-9 for 0xA0 to 0xFF, and for 0x80 to 0x9F
/// the Turkish Windows code page 1254, whose seven unassigned bytes stand for the control characters of the same number.
/// All 256 bytes come and go unchanged.
namespace Latin5 {

/// True when there is a byte for the character.
bool holds(QChar character);

/// Text as latin5 bytes. Throws EUnstorableValue naming field and the first character that does not fit.
QByteArray encode(const QString& text, const QString& field);

/// Bytes as text; every byte has a character.
QString decode(QByteArrayView bytes);

/// The first character of text that latin5 has no byte for, a surrogate pair as one; nothing when all fit.
std::optional<QString> firstUnstorable(const QString& text);

/// A character as a message names it: in quotation marks with its code, or by the code alone when nobody would see it. A mark
/// that stands on other letters is shown on a circle.
QString named(const QString& character);

}  // namespace Latin5
