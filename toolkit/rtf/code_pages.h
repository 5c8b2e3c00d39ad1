#pragma once

#include <QString>

/// Code pages that letters of rich text files are written in.
namespace CodePages {

/// The bytes' letters. A page that is not known is taken for 1252; a byte without a letter becomes U+FFFD.
QString decode(int page, QByteArrayView bytes);

/// The page of a font's character set, as the file numbers them; pageOfFile for what has none of its own.
int ofCharacterSet(int characterSet, int pageOfFile);

/// A letter of a font of symbols, such as bullets, by its place in the font; 0 when it is none that texts have.
char16_t symbol(int place);

}  // namespace CodePages
