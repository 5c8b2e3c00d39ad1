#pragma once

#include <QString>

/// Small text rules that many screens share.
namespace TextTools {

/// ASCII capitals: Turkish letters go to their nearest ASCII capital, small ASCII letters to theirs.
QString LoginTrBuyukHarf(const QString& text);

/// Turkish letters go to their nearest ASCII letter of the same case. Differs from LoginTrBuyukHarf on purpose: case stays.
QString LoginTrPassword(const QString& text);

/// The next number: increments the decimal number at the end of a text, "AB-099" to "AB-100", "999" to "1000", "AB" to
/// "AB1", the empty text to "1".
QString Numarator(const QString& text);

/// "5.3.2020" to "2020-03-05". Throws EConvertError for a text that is no date.
QString TarihRotate(const QString& date);

/// A number in either notation as the program's own: the last "." or "," of the last 254 characters is the decimal mark and
/// becomes ",", the other one falls away, and so does all that belongs to no number.
QString StrToFloat_Universal(const QString& text);

/// Field number index, from 1, of a row of fields closed by "|": blanks trimmed. Ten capital X when there is none, or no "|" at
/// all, empty for a last one that is not closed.
QString GetValue(const QString& text, int index);

/// Sum of the characters' codes; with the flag, 65 less for each.
int CalcStrChecksum(const QString& text, bool less65);

QString DeleteLineBreaks(const QString& text);

}  // namespace TextTools
