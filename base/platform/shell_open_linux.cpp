#include "base/platform/shell_open.h"

#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

bool shellOpen(const QString& fileOrAddress) { return QProcess::startDetached(u"xdg-open"_s, {fileOrAddress}); }

void startHelper(const QString& programFile) {
  if (QFileInfo(programFile).isExecutable()) QProcess::startDetached(programFile, {}, QFileInfo(programFile).absolutePath());
}
