#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>

/// A disk of its own that really is full: a small file system where this process may mount one, otherwise a limit to the
/// size of files, past which the system refuses writes as well. Goes with the object.
class FullDisk {
 public:
  FullDisk();
  ~FullDisk();
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

  QString path(const QString& name) const { return folder_.filePath(name); }
  /// Names of all files but the one that fills the disk.
  QStringList files() const;
  /// Leaves room for that many blocks of blockSize bytes.
  void leave(int blocks);
  /// Room for everything that a test prepares.
  void leavePlenty() { leave(mostBlocks); }

  static constexpr int blockSize = 4096;
  static constexpr int mostBlocks = 64;

 private:
  QTemporaryDir folder_;
  bool isMounted_ = false;
};
