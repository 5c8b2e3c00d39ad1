#include "base/data/latin5.h"

#include "base/exceptions.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Characters of the bytes 0x80 to 0x9F by code page 1254.
constexpr std::array<char16_t, 32> windowsRows = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x008E, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x009E, 0x0178};

constexpr std::array<char16_t, 256> makeCharacters() {
  std::array<char16_t, 256> table{};
  for (unsigned byte = 0; byte < 256; ++byte) table[byte] = char16_t(byte);
  for (unsigned row = 0; row < 32; ++row) table[0x80 + row] = windowsRows[row];
  // The six letters in which ISO 8859-9 differs from ISO 8859-1.
  table[0xD0] = 0x011E;  // Ğ
  table[0xDD] = 0x0130;  // İ
  table[0xDE] = 0x015E;  // Ş
  table[0xF0] = 0x011F;  // ğ
  table[0xFD] = 0x0131;  // ı
  table[0xFE] = 0x015F;  // ş
  return table;
}

constexpr auto characters = makeCharacters();

/// The byte of a character, or -1.
int byteOf(char16_t character) {
  if (character < 0x80) return character;
  if (character >= 0xA0 && character < 0x100 && characters[character] == character) return character;
  for (unsigned byte = 0x80; byte < 256; ++byte)
    if (characters[byte] == character) return int(byte);
  return -1;
}

}  // namespace

bool Latin5::holds(QChar character) { return byteOf(character.unicode()) >= 0; }

QByteArray Latin5::encode(const QString& text, const QString& field) {
  QByteArray bytes(text.size(), Qt::Uninitialized);
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int byte = byteOf(text[i].unicode());
    if (byte < 0) {
      const QString character = *firstUnstorable(text);
      throw EUnstorableValue(u"\"%1\" alanındaki %2 karakteri veritabanında saklanamaz."_s.arg(field, named(character)), field,
                             character);
    }
    bytes[i] = char(byte);
  }
  return bytes;
}

QString Latin5::decode(QByteArrayView bytes) {
  QString text(bytes.size(), Qt::Uninitialized);
  QChar* out = text.data();
  for (const char byte : bytes) *out++ = QChar(characters[uchar(byte)]);
  return text;
}

std::optional<QString> Latin5::firstUnstorable(const QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (byteOf(text[i].unicode()) >= 0) continue;
    const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    return text.mid(i, pair ? 2 : 1);
  }
  return std::nullopt;
}

QString Latin5::named(const QString& character) {
  const char32_t code = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1]) : character[0].unicode();
  const QString codeText = u"U+"_s + QString::number(uint(code), 16).toUpper().rightJustified(4, u'0');
  if (!QChar::isPrint(code) || QChar::isSpace(code)) return codeText;
  const QString circle = QChar::isMark(code) ? u"\u25CC"_s : QString();
  return u"\"%1\" (%2)"_s.arg(circle + character, codeText);
}
