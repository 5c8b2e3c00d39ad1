#pragma once

#include <QBuffer>
#include <QImage>

/// The file of a red picture in a format that Qt writes.
inline QByteArray pictureBytes(const char* format, QSize size = {40, 30}, QImage::Format colors = QImage::Format_RGB32) {
  QImage image(size, colors);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes;
}
