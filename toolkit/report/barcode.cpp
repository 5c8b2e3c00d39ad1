#include "toolkit/report/barcode.h"

#include "base/exceptions.h"

#include <zint.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int utf8Eci = 26;
constexpr qsizetype mostLetters = 3000;

struct Symbology {
  QString word;
  QString caption;
  int code;
  int quiet;  ///< modules left and right; a matrix has them above and below as well
  bool isMatrix;
  QString letters;  ///< that it can hold; empty: printable ASCII for lines, everything for a matrix
};

const Symbology& symbologyOf(const QString& word) {
  static const QString digits = u"0123456789"_s;
  static const std::vector<Symbology> all = {
      {u"code128"_s, u"Code 128"_s, BARCODE_CODE128, 10, false, {}},
      {u"code39"_s, u"Code 39"_s, BARCODE_CODE39, 10, false, u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%"_s},
      {u"ean13"_s, u"EAN-13"_s, BARCODE_EANX, 11, false, digits},
      {u"ean8"_s, u"EAN-8"_s, BARCODE_EANX, 7, false, digits},
      {u"itf"_s, u"ITF"_s, BARCODE_C25INTER, 10, false, digits},
      {u"codabar"_s, u"Codabar"_s, BARCODE_CODABAR, 10, false, u"0123456789-$:/.+ABCD"_s},
      {u"qr"_s, u"QR"_s, BARCODE_QRCODE, 4, true, {}},
      {u"datamatrix"_s, u"DataMatrix"_s, BARCODE_DATAMATRIX, 2, true, {}},
  };
  const auto found = std::find_if(all.begin(), all.end(), [&](const Symbology& each) { return each.word == word; });
  if (found == all.end()) throw EConvertError(u"“%1” adlı bir barkod türü yok"_s.arg(word));
  return *found;
}

void checkLetters(const Symbology& symbology, const QString& text) {
  if (text.size() > mostLetters) throw EConvertError(u"%1 için metin çok uzun"_s.arg(symbology.caption));
  if (symbology.isMatrix) return;
  for (const QChar letter : text) {
    const bool holds = symbology.letters.isEmpty() ? letter >= u' ' && letter <= u'~' : symbology.letters.contains(letter);
    if (!holds) throw EConvertError(u"%1 “%2” harfini yazamaz: %3"_s.arg(symbology.caption, letter, text));
  }
}

/// The digits with their check digit, which may be there already.
QString withCheckDigit(const Symbology& symbology, const QString& digits, qsizetype length) {
  if (digits.size() != length && digits.size() != length - 1)
    throw EConvertError(u"%1 için %2 rakam gerekir: %3"_s.arg(symbology.caption).arg(length).arg(digits));
  int sum = 0;
  for (qsizetype place = 0; place < length - 1; ++place)
    sum += digits[place].digitValue() * ((length - place) % 2 == 0 ? 3 : 1);
  const QString whole = digits.left(length - 1) + QString::number((10 - sum % 10) % 10);
  if (digits.size() == length && digits != whole)
    throw EConvertError(u"%1 denetim rakamı yanlış: %2 yerine %3 olmalı"_s.arg(symbology.caption, digits.right(1), whole.right(1)));
  return whole;
}

/// The text as the library is to encode it.
QString prepared(const Symbology& symbology, const QString& text) {
  if (symbology.word == u"itf" && text.size() % 2 != 0)
    throw EConvertError(u"ITF çift sayıda rakam ister: %1"_s.arg(text));
  // A Codabar symbol begins and ends with a letter; readers take it off again.
  if (symbology.word == u"codabar" && !text[0].isLetter()) return u'A' + text + u'A';
  return text;
}

struct Symbol {
  zint_symbol* handle = ZBarcode_Create();
  Symbol() = default;
  Symbol(const Symbol&) = delete;
  Symbol& operator=(const Symbol&) = delete;
  ~Symbol() { ZBarcode_Delete(handle); }
};

bool isDark(const zint_symbol& symbol, int row, int column) {
  return (symbol.encoded_data[row][column / 8] >> (column % 8)) & 1;
}

std::vector<QRect> barsOf(const zint_symbol& symbol, int left, int top) {
  std::vector<QRect> bars;
  for (int row = 0; row < symbol.rows; ++row)
    for (int column = 0; column < symbol.width; ++column) {
      if (!isDark(symbol, row, column)) continue;
      const int first = column;
      while (column + 1 < symbol.width && isDark(symbol, row, column + 1)) ++column;
      bars.emplace_back(left + first, top + row, column - first + 1, 1);
    }
  return bars;
}

}  // namespace

BarcodeSymbol encodeBarcode(const QString& word, const QString& text) {
  const Symbology& symbology = symbologyOf(word);
  if (text.isEmpty()) throw EConvertError(u"barkodun metni yok"_s);
  checkLetters(symbology, text);
  const bool hasCheckDigit = symbology.code == BARCODE_EANX;
  const QString shown = hasCheckDigit ? withCheckDigit(symbology, text, symbology.word == u"ean13" ? 13 : 8) : text;
  // The library puts the check digit behind the others itself.
  const QString source = hasCheckDigit ? shown.chopped(1) : prepared(symbology, text);
  const QByteArray bytes = source.toUtf8();
  const Symbol symbol;
  if (!symbol.handle) throw std::bad_alloc();
  symbol.handle->symbology = symbology.code;
  symbol.handle->input_mode = UNICODE_MODE;
  if (symbology.isMatrix && bytes.size() != source.size()) symbol.handle->eci = utf8Eci;
  // Readers expect a square; the smallest symbol may be a rectangle.
  if (symbology.word == u"datamatrix") symbol.handle->option_3 = DM_SQUARE;
  const int code = ZBarcode_Encode(symbol.handle, reinterpret_cast<const unsigned char*>(bytes.constData()), int(bytes.size()));
  if (code >= ZINT_ERROR) throw EConvertError(u"%1 bu metni yazamaz: %2"_s.arg(symbology.caption, text));
  BarcodeSymbol made;
  const int above = symbology.isMatrix ? symbology.quiet : 0;
  made.columns = symbol.handle->width + 2 * symbology.quiet;
  made.rows = symbol.handle->rows + 2 * above;
  made.bars = std::make_shared<const std::vector<QRect>>(barsOf(*symbol.handle, symbology.quiet, above));
  made.text = shown;
  return made;
}
