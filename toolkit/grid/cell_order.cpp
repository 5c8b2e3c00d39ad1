#include "toolkit/grid/cell_order.h"

#include "base/data/latin5.h"
#include "base/turkish_text.h"

#include <algorithm>
#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace {

/// Place of a character: what is no letter by its code, then the letters as the alphabet has them, then all that latin5 lacks.
quint32 rankOf(QChar character, unsigned code) {
  static const QString alphabet = u"aâbcçdefgğhıiîjklmnoöpqrsştuûüvwxyz"_s;
  const qsizetype place = alphabet.indexOf(TurkishText::lower(character));
  if (place >= 0) return 256 + quint32(place);
  return code < 256 ? code : 512 + code;
}

/// Place of each latin5 byte.
const std::array<quint16, 256>& ranks() {
  static const auto table = [] {
    std::array<quint16, 256> made{};
    for (unsigned byte = 0; byte < 256; ++byte) {
      const char raw = char(byte);
      made[byte] = quint16(rankOf(Latin5::decode(QByteArrayView(&raw, 1)).front(), byte));
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

std::strong_ordering compareTexts(const QString& left, const QString& right) {
  const qsizetype common = std::min(left.size(), right.size());
  for (qsizetype i = 0; i < common; ++i) {
    const auto order = rankOf(left[i], left[i].unicode()) <=> rankOf(right[i], right[i].unicode());
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
