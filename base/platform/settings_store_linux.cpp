#include "base/platform/settings_store.h"

#include "base/exceptions.h"
#include "base/ini_file.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString storeFile() {
  const QString given = qEnvironmentVariable("KVTK_SETTINGS");
  if (!given.isEmpty()) return given;
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/torvane/settings.ini"_s;
}

QString sectionName(const QString& path, const QString& section) { return path + u'\\' + section; }

/// A value on one line, in quotes, so that blanks at its ends and line breaks come back as they were.
QString quoted(const QString& value) {
  QString text = value;
  text.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
  return u'"' + text + u'"';
}

QString unquoted(const QString& stored) {
  if (stored.size() < 2 || !stored.startsWith(u'"') || !stored.endsWith(u'"')) return stored;
  QString value;
  bool escaped = false;
  for (const QChar c : QStringView(stored).mid(1, stored.size() - 2)) {
    if (!escaped && c == u'\\') {
      escaped = true;
      continue;
    }
    value += !escaped ? c : c == u'n' ? QChar(u'\n') : c == u'r' ? QChar(u'\r') : c;
    escaped = false;
  }
  return value;
}

/// Makes the file with mode 0600 before anything is in it: it holds passwords.
void ensurePrivate(const QString& file) {
  QDir().mkpath(QFileInfo(file).absolutePath());
  const QByteArray name = file.toLocal8Bit();
  const int handle = open(name.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (handle < 0) throw EInOutError(u"%1 dosyası açılamadı."_s.arg(file));
  fchmod(handle, S_IRUSR | S_IWUSR);
  close(handle);
}

}  // namespace

QString SettingsStore::read(const QString& path, const QString& section, const QString& key, const QString& fallback) {
  return unquoted(IniFile::read(storeFile(), sectionName(path, section), key, fallback));
}

void SettingsStore::write(const QString& path, const QString& section, const QString& key, const QString& value) {
  const QString file = storeFile();
  ensurePrivate(file);
  // The new file takes the mode of the one that it replaces.
  IniFile::write(file, sectionName(path, section), key, quoted(value));
}

void SettingsStore::remove(const QString& path) {
  const QList<IniFile::Entry> all = IniFile::entries(storeFile());
  QList<IniFile::Entry> left = all;
  left.removeIf([&](const IniFile::Entry& each) { return each.section.startsWith(path + u'\\'); });
  if (left.size() != all.size()) IniFile::replace(storeFile(), left);
}
