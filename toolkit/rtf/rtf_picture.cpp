#include "toolkit/rtf/rtf_picture.h"

#include "toolkit/rtf/rtf_measures.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double dotsPerInch = 96;  ///< of a picture that does not tell its size
constexpr double largest = 1000;    ///< mm

QSize sizeOf(const QByteArray& bytes, const QByteArray& format) {
  QByteArray data = bytes;
  QBuffer buffer(&data);
  buffer.open(QIODevice::ReadOnly);
  return QImageReader(&buffer, format).size();
}

}  // namespace

void RtfPicture::word(const RtfToken& token) {
  const QByteArrayView name = token.bytes;
  if (name == "pngblip") format_ = "png";
  if (name == "jpegblip") format_ = "jpeg";
  if (name == "picwgoal") width_ = RtfMeasures::millimetres(token.value);
  if (name == "pichgoal") height_ = RtfMeasures::millimetres(token.value);
  if (name == "picscalex") across_ = std::max(token.value, 1);
  if (name == "picscaley") down_ = std::max(token.value, 1);
}

bool RtfPicture::addHex(QByteArrayView digits) {
  for (const char digit : digits) {
    if (digit == ' ' || digit == '\t') continue;
    const int value = digit >= '0' && digit <= '9' ? digit - '0' : digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
    if (value < 0) return false;
    if (half_ < 0) {
      half_ = value;
    } else {
      bytes_ += char(half_ * 16 + value);
      half_ = -1;
    }
  }
  return true;
}

std::optional<RichPicture> RtfPicture::take(qint64 mostDots) const {
  if (format_.isEmpty() || bytes_.isEmpty()) return std::nullopt;
  // The size is asked for first: a small file may hold a picture that no memory does.
  const QSize size = sizeOf(bytes_, format_);
  if (size.isValid() && qint64(size.width()) * size.height() > mostDots) throw EConvertError(u"içindeki resim çok büyük"_s);
  RichPicture picture;
  picture.image = QImage::fromData(bytes_, format_.constData());
  if (picture.image.isNull()) throw EConvertError(u"içindeki resim okunamıyor"_s);
  const auto length = [](double told, int dots, double percent) {
    return std::clamp((told > 0 ? told : dots / dotsPerInch * 25.4) * percent / 100, 0.5, largest);
  };
  picture.width = length(width_, picture.image.width(), across_);
  picture.height = length(height_, picture.image.height(), down_);
  return picture;
}
