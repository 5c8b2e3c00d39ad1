#include "base/platform/file_version.h"

#include "base/program_paths.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QString buildVersion() { return QString::fromLatin1(KVTK_VERSION); }

QString versionRecord(const QString& file, const QString& key) {
  if (QFileInfo(file).canonicalFilePath() != QFileInfo(programFile()).canonicalFilePath()) return {};
  if (key == u"FileVersion"_s || key == u"ProductVersion"_s) return buildVersion();
  if (key == u"ProductName"_s || key == u"FileDescription"_s) return u"Torvane Teknik Servis Takip"_s;
  return {};
}
