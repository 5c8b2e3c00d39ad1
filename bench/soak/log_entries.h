#pragma once

#include <QStringList>

/// The program's log files, read back.
namespace LogEntries {

/// Entries of a program's folder that nothing explains: no service that misbehaved, which the entry names by the address services,
/// no row that another station has written or deleted meanwhile and, where the line was cut, no lost connection.
QStringList unexpected(const QString& folder, const QString& services, bool wasCut);

}  // namespace LogEntries
