#include "base/program_paths.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString programFile() {
  const QString given = qEnvironmentVariable("KVTK_PROGRAM");
  return given.isEmpty() ? QCoreApplication::applicationFilePath() : given;
}

QString programFolder() { return QFileInfo(programFile()).absolutePath() + u'/'; }

QString logFileName() { return programFolder() + QFileInfo(programFile()).completeBaseName() + u".log"_s; }
