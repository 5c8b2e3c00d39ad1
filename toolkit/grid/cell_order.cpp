#include "toolkit/grid/cell_order.h"

#include "base/data/latin5.h"
#include "base/turkish_text.h"

#include <algorithm>
#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace {

/// Place of each latin5 byte: what is no letter by its code, then the letters as the alphabet has them.
const std::array<quint16, 256>& ranks() {
  static const auto table = [] {
    const QString alphabet = u"aâbcçdefgğhıiîjklmnoöpqrsştuûüvwxyz"_s;
    std::array<quint16, 256> made{};
    for (unsigned byte = 0; byte < 256; ++byte) {
      const char raw = char(byte);
      const QString letter = TurkishText::lower(Latin5::decode(QByteArrayView(&raw, 1)));
      const qsizetype place = letter.isEmpty() ? -1 : alphabet.indexOf(letter);
      made[byte] = quint16(place < 0 ? byte : 256 + place);
    }
    return made;
  }();
  return table;
}

double numberOf(QByteArrayView digits) {
  double number = 0;
  std::from_chars(digits.begin(), digits.end(), number);
  return number;
}

}  // namespace

std::strong_ordering compareTexts(QByteArrayView left, QByteArrayView right) {
  const auto& rank = ranks();
  const qsizetype common = std::min(left.size(), right.size());
  for (qsizetype i = 0; i < common; ++i) {
    const auto order = rank[uchar(left[i])] <=> rank[uchar(right[i])];
    if (order != 0) return order;
  }
  return left.size() <=> right.size();
}

std::strong_ordering compareCells(const FieldInfo& field, std::optional<QByteArrayView> left, std::optional<QByteArrayView> right) {
  if (!left || !right) return left.has_value() <=> right.has_value();
  switch (field.type) {
    case FieldType::Integer:
    case FieldType::Double:
    case FieldType::Decimal: {
      const double a = numberOf(*left);
      const double b = numberOf(*right);
      return a < b ? std::strong_ordering::less : b < a ? std::strong_ordering::greater : std::strong_ordering::equal;
    }
    case FieldType::Text:
      return compareTexts(*left, *right);
    default:
      return left->compare(*right) <=> 0;
  }
}
