#include "base/ini_file.h"

#include "base/exceptions.h"
#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

using namespace Qt::StringLiterals;

namespace {

/// Lines as they stand in the file, without their breaks. Bytes, so that a line of another encoding survives a write.
using Lines = QList<QByteArray>;

Lines linesOf(QFile& file) {
  QByteArray text = file.readAll();
  if (text.startsWith("\xEF\xBB\xBF")) text.remove(0, 3);
  text.replace("\r\n", "\n");
  if (text.endsWith('\n')) text.chop(1);
  return text.isEmpty() ? Lines() : text.split('\n');
}

bool sameName(const QByteArray& left, const QString& right) {
  return QString::fromUtf8(left).trimmed().compare(right.trimmed(), Qt::CaseInsensitive) == 0;
}

/// Line number of the section's header, and of the key in it; end is the first line behind the section.
struct Place {
  qsizetype header = -1;
  qsizetype key = -1;
  qsizetype end = -1;
};

Place find(const Lines& lines, const QString& section, const QString& key) {
  Place place;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QByteArray line = lines[i].trimmed();
    if (line.startsWith('[') && line.endsWith(']')) {
      if (place.header >= 0) break;
      if (sameName(line.mid(1, line.size() - 2), section)) place.header = i;
    } else if (place.header >= 0 && place.key < 0) {
      const qsizetype mark = line.indexOf('=');
      if (mark > 0 && sameName(line.left(mark), key)) place.key = i;
    }
    // A new key goes before the blank lines that part two sections.
    if (place.header >= 0 && !line.isEmpty()) place.end = i + 1;
  }
  return place;
}

}  // namespace

QString IniFile::read(const QString& file, const QString& section, const QString& key, const QString& fallback) {
  QFile in(file);
  if (!QFileInfo(file).isFile() || !in.open(QIODevice::ReadOnly)) return fallback;
  const Lines lines = linesOf(in);
  const Place place = find(lines, section, key);
  if (place.key < 0) return fallback;
  const QByteArray& line = lines[place.key];
  return QString::fromUtf8(line.mid(line.indexOf('=') + 1)).trimmed();
}

void IniFile::write(const QString& file, const QString& section, const QString& key, const QString& value) {
  const auto fail = [&file](const QString& reason) { throw EInOutError(u"%1 dosyasına yazılamadı: %2"_s.arg(file, reason)); };
  QFile in(file);
  // A file that is there but cannot be read must not be replaced by one with this key alone.
  if (in.exists() && (!QFileInfo(file).isFile() || !in.open(QIODevice::ReadOnly))) fail(in.errorString());
  Lines lines = in.isOpen() ? linesOf(in) : Lines();
  in.close();

  const Place place = find(lines, section, key);
  const QByteArray line = (key + u'=' + QString(value).remove(u'\r').replace(u'\n', u' ')).toUtf8();
  if (place.key >= 0) {
    lines[place.key] = line;
  } else if (place.header >= 0) {
    lines.insert(place.end, line);
  } else {
    lines += (u'[' + section + u']').toUtf8();
    lines += line;
  }
  WholeFile::replace(file, lines.join("\r\n") + "\r\n");
}
