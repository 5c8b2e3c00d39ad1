#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Facts about the computer. Tests put their own functions in place.
struct Machine {
  /// The computer's name, trimmed; empty when it cannot be told. The environment variable KVTK_COMPUTER_NAME goes before it.
  std::function<QString()> computerName;
  /// First address that the computer's name resolves to; empty when there is none.
  std::function<QString()> firstAddress;
  /// Name and version of the operating system: name, " ", major, ".", minor, ".", build.
  std::function<QString()> osVersion;
  /// Full paths of the running processes' files, or their bare names where the path is not told.
  std::function<QStringList()> processFiles;
  /// True when a top-level window of that class exists; false where the system has no window classes.
  std::function<bool(const QString& windowClass)> windowExists;
};

Machine& machine();
