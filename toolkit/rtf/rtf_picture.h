#pragma once

#include "toolkit/rtf/rtf_tokens.h"
#include "toolkit/report/rich_text.h"

#include <optional>

/// A picture of a rich text file while its words and bytes come in.
class RtfPicture {
 public:
  /// Takes a word that tells of the picture; others are passed over.
  void word(const RtfToken& token);
  /// Takes picture data as hex digits. False when there are other letters among them.
  [[nodiscard]] bool addHex(QByteArrayView digits);
  void addBinary(QByteArrayView bytes) { bytes_ += bytes; }

  /// The picture, when it is of a kind that is shown: PNG or JPEG. Throws EConvertError with the reason when it cannot be read
  /// or has more than that many dots.
  std::optional<RichPicture> take(qint64 mostDots) const;

 private:
  QByteArray format_;  ///< empty: of no kind that is shown
  QByteArray bytes_;
  int half_ = -1;  ///< first digit of a byte whose second has not come
  double width_ = 0;
  double height_ = 0;
  double across_ = 100;  ///< per cent
  double down_ = 100;
};
