#pragma once

#include <QBuffer>
#include <QImage>

/// A picture as a telephone makes it: twelve million points, two megabytes.
inline QByteArray samplePicture() {
  constexpr int pictureBytes = 2 * 1024 * 1024;
  QImage image(4000, 3000, QImage::Format_RGB32);
  quint32 state = 1;
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const int noise = int((state = state * 1664525 + 1013904223) >> 28);
      line[x] = qRgb(x / 18 + noise, y / 14 + noise, (x + y) / 32 + noise);
    }
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPG", 85);
  if (bytes.size() > pictureBytes) qFatal("the picture has %lld bytes", bytes.size());
  // Filled up with bytes like its own: noughts would be two bytes each on their way to the server.
  return bytes + bytes.first(pictureBytes - bytes.size());
}
