#include "base/program_paths.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString programFile() { return QCoreApplication::applicationFilePath(); }

QString programFolder() { return QCoreApplication::applicationDirPath() + u'/'; }

QString logFileName() { return programFolder() + QFileInfo(programFile()).completeBaseName() + u".log"_s; }
