#pragma once

#include <QString>

/// Full path of the running program.
QString programFile();
/// Folder of the running program, with a separator behind it.
QString programFolder();
/// The log file: the program's path with the extension ".log".
QString logFileName();
