#pragma once

#include <QStringList>

/// The program's log files, read back.
namespace LogEntries {

/// Entries of a program's folder that nothing explains: neither a service that misbehaved, which the entry names by the address
/// services, nor, where the line was cut, the lost connection.
QStringList unexpected(const QString& folder, const QString& services, bool wasCut);

}  // namespace LogEntries
