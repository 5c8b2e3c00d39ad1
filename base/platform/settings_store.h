#pragma once

#include <QString>

/// Values kept for the current user: the registry where the system has one, otherwise one file that only the user can read.
/// The environment variable KVTK_SETTINGS names another file, for tests.
namespace SettingsStore {

/// fallback when the value is missing or cannot be read.
QString read(const QString& path, const QString& section, const QString& key, const QString& fallback = {});
/// Any text comes back as it was written. Throws EInOutError.
void write(const QString& path, const QString& section, const QString& key, const QString& value);
/// Takes away all that is kept under a path. Throws EInOutError.
void remove(const QString& path);

}  // namespace SettingsStore
