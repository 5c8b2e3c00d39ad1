#include "app/ini_file.h"

#include "app/exceptions.h"

#include <QFile>
#include <QSaveFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QStringList linesOf(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QString text = QString::fromUtf8(file.readAll());
  text.remove(u'\r');
  if (text.endsWith(u'\n')) text.chop(1);
  return text.isEmpty() ? QStringList() : text.split(u'\n');
}

bool sameName(QStringView left, QStringView right) { return left.trimmed().compare(right.trimmed(), Qt::CaseInsensitive) == 0; }

/// Line number of the section's header, and of the key in it; end is the first line behind the section.
struct Place {
  qsizetype header = -1;
  qsizetype key = -1;
  qsizetype end = -1;
};

Place find(const QStringList& lines, const QString& section, const QString& key) {
  Place place;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QStringView line = QStringView(lines[i]).trimmed();
    if (line.startsWith(u'[') && line.endsWith(u']')) {
      if (place.header >= 0) break;
      if (sameName(line.mid(1, line.size() - 2), section)) place.header = i;
    } else if (place.header >= 0 && place.key < 0) {
      const qsizetype mark = line.indexOf(u'=');
      if (mark > 0 && sameName(line.left(mark), key)) place.key = i;
    }
    if (place.header >= 0) place.end = i + 1;
  }
  return place;
}

}  // namespace

QString IniFile::read(const QString& file, const QString& section, const QString& key, const QString& fallback) {
  const QStringList lines = linesOf(file);
  const Place place = find(lines, section, key);
  if (place.key < 0) return fallback;
  return lines[place.key].section(u'=', 1).trimmed();
}

void IniFile::write(const QString& file, const QString& section, const QString& key, const QString& value) {
  QStringList lines = linesOf(file);
  const Place place = find(lines, section, key);
  const QString line = key + u'=' + QString(value).replace(u'\n', u' ').remove(u'\r');
  if (place.key >= 0) {
    lines[place.key] = line;
  } else if (place.header >= 0) {
    lines.insert(place.end, line);
  } else {
    lines += u'[' + section + u']';
    lines += line;
  }
  QSaveFile out(file);
  const QByteArray bytes = lines.join(u"\r\n"_s).toUtf8() + "\r\n";
  if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
    throw EInOutError(u"%1 dosyasına yazılamadı: %2"_s.arg(file, out.errorString()));
}
