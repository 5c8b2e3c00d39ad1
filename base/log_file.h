#pragma once

#include "base/exceptions.h"

#include <QDateTime>
#include <QString>

/// Lines of the program's log and the file that they go to.
namespace LogFile {

/// Who was at the screen when something failed.
struct Context {
  QDateTime now;
  QString user;
  QString activeForm;
  QString activeControl;
};

/// Entry for an error that nobody handled; a query's error has its name and full statement behind it.
QString errorEntry(const Context& context, const std::exception& error);
/// Entry for a refused command: name and caption of the label that marks it.
QString markerEntry(const Context& context, const QString& labelName, const QString& labelCaption);
/// Line of a message with the error that goes with it, if any; line breaks become blanks, as an entry is one line.
QString messageEntry(const QDateTime& now, const QString& message, const std::exception* error);

/// Message of any error, as the user may be shown it.
QString messageOf(const std::exception& error);

/// A file that has grown to this many bytes is turned over before the next entry.
inline constexpr qint64 mostBytes = 1 << 20;
/// Old files that are kept, "NAME.1.log" the newest.
inline constexpr int oldFiles = 4;

/// Appends the entry as one write; the file is created when missing. False when it could not be written whole.
///
/// A full file goes into the newest old one. There, of entries of one day that differ in nothing but the time, the first
/// one stays: refused commands, which come several times a second, do not push the errors out.
bool append(const QString& file, const QString& entry);

}  // namespace LogFile
