#include "base/whole_file.h"

#include "base/exceptions.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

WholeFile::WholeFile(const QString& file) : out_(file) {
  const QFileInfo about(file);
  if (about.exists() && !about.isFile()) fail(u"bu ad bir dosyanın değil."_s);
  if (!out_.open(WriteOnly)) fail(reason());
  open(WriteOnly | Unbuffered);
}

void WholeFile::commit() {
  // QSaveFile's own commit does not notice that its last buffer found no room.
  isShort_ = !out_.flush() || isShort_;
  if (isShort_) fail(u"diskte yeterli yer yok."_s);
  if (!out_.commit()) fail(reason());
}

void WholeFile::replace(const QString& file, const QByteArray& bytes) {
  WholeFile out(file);
  out.write(bytes);
  out.commit();
}

qint64 WholeFile::writeData(const char* bytes, qint64 count) {
  isShort_ = isShort_ || out_.write(bytes, count) != count;
  return isShort_ ? -1 : count;
}

void WholeFile::fail(const QString& reason) const {
  throw EInOutError(u"%1 dosyasına yazılamadı: %2"_s.arg(out_.fileName(), reason));
}

/// In Turkish for what happens to users; the system's own words for the rest.
QString WholeFile::reason() const {
  const QFileInfo about(out_.fileName());
  const QFileInfo folder(about.absolutePath());
  if (!folder.isDir()) return u"klasör bulunamadı."_s;
  if (about.exists() && !about.isWritable()) return u"dosya yazmaya karşı korumalı."_s;
  switch (out_.error()) {
    case QFileDevice::RenameError:
      return u"dosya başka bir programda açık olabilir."_s;
    case QFileDevice::WriteError:
    case QFileDevice::ResourceError:
      return u"diskte yeterli yer yok."_s;
    default:
      return folder.isWritable() ? out_.errorString() : u"klasöre yazma izni yok."_s;
  }
}
