#include "base/ini_file.h"

#include "base/exceptions.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = 1 << 20;  ///< a bigger file is none of these

/// Lines as they stand in the file. Bytes, so that a line of another encoding survives a write.
using Lines = QList<QByteArray>;

/// What a line tells; neither for a comment, a blank line and anything else.
struct Content {
  std::optional<QString> section;
  std::optional<QString> key;
  QString value;
};

Content contentOf(const QByteArray& line) {
  const QString text = TextLines::decode(line);
  const QString trimmed = text.trimmed();
  if (trimmed.startsWith(u'[') && trimmed.endsWith(u']')) return {trimmed.mid(1, trimmed.size() - 2).trimmed(), {}, {}};
  const qsizetype mark = text.indexOf(u'=');
  const QString key = text.left(mark).trimmed();
  if (mark < 0 || key.isEmpty()) return {};
  const bool isSpaced = text[mark - 1] == u' ' && text.mid(mark + 1, 1) == " "_L1;
  return {{}, key, text.mid(mark + (isSpaced ? 2 : 1))};
}

bool sameName(const QString& left, const QString& right) { return left.compare(right.trimmed(), Qt::CaseInsensitive) == 0; }

/// The file's lines; nothing when it is none, cannot be read or is too big.
std::optional<Lines> linesOf(const QString& file) {
  QFile in(file);
  if (!QFileInfo(file).isFile() || in.size() > mostBytes || !in.open(QIODevice::ReadOnly)) return {};
  const QByteArray bytes = in.readAll();
  if (in.error() != QFileDevice::NoError) return {};
  return TextLines::split(bytes);
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
    const Content content = contentOf(lines[i]);
    if (content.section) {
      if (place.header >= 0) break;
      if (sameName(*content.section, section)) place.header = i;
    } else if (place.header >= 0 && place.key < 0 && content.key && sameName(*content.key, key)) {
      place.key = i;
    }
    // A new key goes before the blank lines that part two sections.
    if (place.header >= 0 && !lines[i].trimmed().isEmpty()) place.end = i + 1;
  }
  return place;
}

QByteArray lineOf(const QString& key, const QString& value) {
  return (key + u'=' + QString(value).remove(u'\r').replace(u'\n', u' ')).toUtf8();
}

void save(const QString& file, const Lines& lines) { WholeFile::replace(file, lines.join("\r\n") + "\r\n"); }

}  // namespace

QList<IniFile::Entry> IniFile::entries(const QString& file) {
  QList<Entry> entries;
  QString section;
  for (const QByteArray& line : linesOf(file).value_or(Lines())) {
    const Content content = contentOf(line);
    if (content.section) section = *content.section;
    if (content.key) entries.append({section, *content.key, content.value});
  }
  return entries;
}

QString IniFile::read(const QString& file, const QString& section, const QString& key, const QString& fallback) {
  const Lines lines = linesOf(file).value_or(Lines());
  const Place place = find(lines, section, key);
  return place.key < 0 ? fallback : contentOf(lines[place.key]).value;
}

void IniFile::write(const QString& file, const QString& section, const QString& key, const QString& value) {
  write(file, {{section, key, value}});
}

void IniFile::write(const QString& file, const QList<Entry>& entries) {
  const std::optional<Lines> present = linesOf(file);
  // A file that is there but cannot be read must not be replaced by one with these keys alone.
  if (!present && QFileInfo::exists(file)) throw EInOutError(u"%1 dosyasına yazılamadı: dosya okunamıyor."_s.arg(file));
  Lines lines = present.value_or(Lines());
  for (const Entry& entry : entries) {
    const Place place = find(lines, entry.section, entry.key);
    const QByteArray line = lineOf(entry.key, entry.value);
    if (place.key >= 0) {
      lines[place.key] = line;
    } else if (place.header >= 0) {
      lines.insert(place.end, line);
    } else {
      lines += (u'[' + entry.section + u']').toUtf8();
      lines += line;
    }
  }
  save(file, lines);
}

void IniFile::replace(const QString& file, const QList<Entry>& entries) {
  Lines lines;
  QString section;
  for (const Entry& entry : entries) {
    if (lines.isEmpty() || entry.section != section) lines += (u'[' + entry.section + u']').toUtf8();
    section = entry.section;
    lines += lineOf(entry.key, entry.value);
  }
  save(file, lines);
}
