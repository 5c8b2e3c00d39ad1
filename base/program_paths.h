#pragma once

#include <QString>

/// Full path of the running program; where one is installed for all users, the place that stands for it in the user's own folder
/// (KVTK_PROGRAM), beside which its files are kept.
QString programFile();
/// Folder of the running program, with a separator behind it.
QString programFolder();
/// The log file: the program's path with the extension ".log".
QString logFileName();
