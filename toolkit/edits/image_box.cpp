#include "toolkit/edits/image_box.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

QImage decodedPicture(const QByteArray& bytes, const QByteArray& format, int longestSide) {
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, format);
  reader.setAutoDetectImageFormat(format.isEmpty());
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && std::max(size.width(), size.height()) > longestSide)
    reader.setScaledSize(size.scaled(longestSide, longestSide, Qt::KeepAspectRatio));
  const QImage image = reader.read();
  if (image.isNull()) throw Exception(u"Resim bozuk veya türü bilinmiyor."_s);
  return image;
}

ImageBox::ImageBox(QWidget* parent) : QFrame(parent) { setFrameStyle(QFrame::StyledPanel | QFrame::Sunken); }

void ImageBox::setImageBytes(const QByteArray& bytes) {
  if (bytes.isEmpty()) return clearImage();
  constexpr int trialSide = 64;
  decodedPicture(bytes, format_, trialSide);
  bytes_ = bytes;
  image_ = {};
  update();
}

void ImageBox::clearImage() {
  bytes_.clear();
  image_ = {};
  update();
}

void ImageBox::setEmptyText(const QString& text) {
  emptyText_ = text;
  update();
}

Value ImageBox::editValue() const { return bytes_.isEmpty() ? Value() : Value(bytes_); }

void ImageBox::setEditValue(const Value& value) {
  const auto* bytes = std::get_if<QByteArray>(&value.data());
  if (!bytes && !value.isNull()) throw EConvertError(u"Değer bir resim değil."_s);
  setImageBytes(bytes ? *bytes : QByteArray());
}

void ImageBox::resetEdit(int) { clearImage(); }

QSize ImageBox::sizeHint() const { return {320, 240}; }

void ImageBox::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  image_ = {};
}

/// The picture decoded for a room of so many pixels.
const QImage& ImageBox::imageFor(QSize pixels) {
  if (image_.isNull() || imageRoom_ != pixels) {
    image_ = decodedPicture(bytes_, format_, std::max(pixels.width(), pixels.height()));
    imageRoom_ = pixels;
  }
  return image_;
}

void ImageBox::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  guarded(this, [&] {
    QPainter painter(this);
    const QRect room = contentsRect();
    painter.fillRect(room, palette().base());
    if (bytes_.isEmpty()) {
      painter.setPen(palette().color(QPalette::PlaceholderText));
      painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
      return;
    }
    if (room.isEmpty()) return;
    const QImage& image = imageFor(room.size() * devicePixelRatio());
    QRect place(QPoint(), image.size().scaled(room.size(), Qt::KeepAspectRatio).boundedTo(image.size()));
    place.moveCenter(room.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, image);
  });
}
