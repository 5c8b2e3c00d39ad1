#include "base/text_lines.h"

#include "base/data/latin5.h"

#include <QStringDecoder>

QList<QByteArray> TextLines::split(QByteArray bytes) {
  if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
  bytes.replace("\r\n", "\n").replace('\r', '\n');
  if (bytes.endsWith('\n')) bytes.chop(1);
  return bytes.isEmpty() ? QList<QByteArray>() : bytes.split('\n');
}

QString TextLines::decode(QByteArrayView line) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = utf8.decode(line);
  return utf8.hasError() ? Latin5::decode(line) : text;
}

QStringList TextLines::read(const QByteArray& bytes) {
  QStringList lines;
  for (const QByteArray& line : split(bytes)) lines += decode(line);
  return lines;
}
