#include "bench/soak/log_entries.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool holdsAny(const QString& entry, const QStringList& words) {
  return std::any_of(words.begin(), words.end(), [&](const QString& word) { return entry.contains(word); });
}

}  // namespace

QStringList LogEntries::unexpected(const QString& folder, const QString& services, bool wasCut) {
  static const QStringList ofCuts{u"Lost connection"_s, u"erver has gone away"_s, u"Veritabanı bağlantısı açık değil."_s};
  static const QStringList ofOthers{u"Refresh failed. Found 0 records"_s, u"Update failed. Found 0 records"_s};
  static const QRegularExpression beginning(u"^\\d\\d\\.\\d\\d\\.\\d{4} "_s);
  QStringList entries;
  for (const QString& name : QDir(folder).entryList({u"*.log"_s}, QDir::Files)) {
    QFile file(folder + name);
    if (!file.open(QIODevice::ReadOnly)) continue;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
      line.contains(beginning) || entries.isEmpty() ? void(entries += line) : void(entries.back() += u' ' + line);
  }
  entries.removeIf([&](const QString& entry) {
    return entry.contains(services) || holdsAny(entry, ofOthers) || (wasCut && holdsAny(entry, ofCuts));
  });
  return entries;
}
