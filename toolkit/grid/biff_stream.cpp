#include "toolkit/grid/biff_stream.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr quint16 sharedTexts = 0x00FC;
constexpr quint16 continued = 0x003C;

bool isNarrow(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 256; });
}

}  // namespace

void BiffStream::begin(quint16 number) {
  word(number);
  lengthPlace_ = bytes_.size();
  word(0);
}

void BiffStream::end() {
  qToLittleEndian(quint16(bytes_.size() - lengthPlace_ - 2), bytes_.data() + lengthPlace_);
}

void BiffStream::word(quint16 value) {
  char raw[2];
  qToLittleEndian(value, raw);
  bytes_.append(raw, sizeof raw);
}

void BiffStream::dword(quint32 value) {
  char raw[4];
  qToLittleEndian(value, raw);
  bytes_.append(raw, sizeof raw);
}

void BiffStream::real(double value) {
  quint64 bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  char raw[8];
  qToLittleEndian(bits, raw);
  bytes_.append(raw, sizeof raw);
}

void BiffStream::letters(const QString& text) {
  const bool narrow = isNarrow(text);
  byte(narrow ? 0 : 1);
  for (const QChar letter : text) {
    if (narrow)
      byte(quint8(letter.unicode()));
    else
      word(letter.unicode());
  }
}

void BiffStream::shortText(const QString& text) {
  byte(quint8(text.size()));
  letters(text);
}

void BiffStream::longText(const QString& text) {
  word(quint16(text.size()));
  letters(text);
}

void BiffStream::patch(qsizetype place, quint32 value) { qToLittleEndian(value, bytes_.data() + place); }

int BiffTexts::numberOf(const QString& text) {
  ++uses_;
  const auto known = numbers_.constFind(text);
  if (known != numbers_.constEnd()) return *known;
  const int number = int(texts_.size());
  numbers_.insert(text, number);
  texts_ += text;
  return number;
}

void BiffTexts::write(BiffStream& stream) const {
  constexpr int headSize = 3;  // letters' count and width, which stay together
  stream.begin(sharedTexts);
  stream.dword(uses_);
  stream.dword(quint32(texts_.size()));
  int used = 8;
  const auto goOn = [&] {
    stream.end();
    stream.begin(continued);
    used = 0;
  };
  for (const QString& text : texts_) {
    const bool narrow = isNarrow(text);
    const int letterSize = narrow ? 1 : 2;
    if (used + headSize + (text.isEmpty() ? 0 : letterSize) > BiffStream::recordLimit) goOn();
    stream.word(quint16(text.size()));
    stream.byte(narrow ? 0 : 1);
    used += headSize;
    for (const QChar letter : text) {
      if (used + letterSize > BiffStream::recordLimit) {
        goOn();
        stream.byte(narrow ? 0 : 1);  // a text that goes on tells its letters' width again
        used = 1;
      }
      if (narrow)
        stream.byte(quint8(letter.unicode()));
      else
        stream.word(letter.unicode());
      used += letterSize;
    }
  }
  stream.end();
}
