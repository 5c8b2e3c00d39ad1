#pragma once

#include <QString>

/// Three numbers of this program's version, joined by ".".
QString buildVersion();

/// A string of a file's version record by its key ("FileVersion", "ProductName", …); empty where the file has none, as every
/// file on a system without such records but this program itself.
QString versionRecord(const QString& file, const QString& key);
