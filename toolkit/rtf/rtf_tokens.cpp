#include "toolkit/rtf/rtf_tokens.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostLetters = 40;       ///< of a control word
constexpr qint64 largest = 1 << 30;   ///< number behind a control word

bool isLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }
bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }
bool isLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

int hexDigit(char byte) {
  if (isDigit(byte)) return byte - '0';
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  return -1;
}

}  // namespace

ERtfFile::ERtfFile(int line, const QString& reason) : EInOutError(u"%1. satır: %2"_s.arg(line).arg(reason)) {}
QString ERtfFile::className() const { return u"ERtfFile"_s; }
QString ERtfFile::parentClassName() const { return u"EInOutError"_s; }

ERtfFile RtfTokens::fault(const QString& reason) const {
  const auto behind = bytes_.begin() + std::min(place_, bytes_.size());
  return {1 + int(std::count(bytes_.begin(), behind, '\n')), reason};
}

RtfToken RtfTokens::next() {
  while (isLineEnd(at(place_))) ++place_;
  if (place_ >= bytes_.size()) return {};
  const qsizetype from = place_;
  switch (bytes_[place_]) {
    case '{': ++place_; return {RtfToken::Open, {}};
    case '}': ++place_; return {RtfToken::Close, {}};
    case '\\': ++place_; return word();
    default: break;
  }
  while (place_ < bytes_.size() && bytes_[place_] != '{' && bytes_[place_] != '}' && bytes_[place_] != '\\' && !isLineEnd(bytes_[place_])) ++place_;
  return {RtfToken::Text, bytes_.sliced(from, place_ - from)};
}

RtfToken RtfTokens::word() {
  if (place_ >= bytes_.size()) throw fault(u"dosya bir denetim işaretinin ortasında bitiyor"_s);
  if (at(place_) == '\'') return hexByte();
  if (!isLetter(at(place_))) return {RtfToken::Symbol, bytes_.sliced(place_++, 1)};
  RtfToken token{RtfToken::Word, {}};
  const qsizetype from = place_;
  while (isLetter(at(place_))) ++place_;
  if (place_ - from > mostLetters) throw fault(u"denetim sözcüğü çok uzun"_s);
  token.bytes = bytes_.sliced(from, place_ - from);
  const bool isNegative = at(place_) == '-' && isDigit(at(place_ + 1));
  if (isNegative) ++place_;
  qint64 number = 0;
  for (; isDigit(at(place_)); ++place_) {
    number = std::min(largest, number * 10 + (at(place_) - '0'));
    token.hasValue = true;
  }
  token.value = int(isNegative ? -number : number);
  if (at(place_) == ' ') ++place_;
  if (token.bytes != "bin") return token;
  if (token.value < 0 || token.value > bytes_.size() - place_) throw fault(u"ikili veri dosyanın sonunu aşıyor"_s);
  token.kind = RtfToken::Binary;
  token.bytes = bytes_.sliced(place_, token.value);
  place_ += token.value;
  return token;
}

RtfToken RtfTokens::hexByte() {
  const int high = hexDigit(at(place_ + 1));
  const int low = hexDigit(at(place_ + 2));
  if (high < 0 || low < 0) throw fault(u"\\' ardında iki onaltılık rakam olmalı"_s);
  place_ += 3;
  return {RtfToken::Byte, {}, high * 16 + low};
}
