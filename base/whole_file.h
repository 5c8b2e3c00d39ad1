#pragma once

#include <QSaveFile>

/// A file that is written whole or not at all: it takes its name's place when everything is on the disk, and until then the
/// one before stands. Short writes are remembered, so that a full disk never passes for success whoever writes into it.
class WholeFile : public QIODevice {
 public:
  /// Throws EInOutError with the reason when the file cannot be begun, or when its name is that of something else than a
  /// plain file, which would be lost: a folder, a device.
  explicit WholeFile(const QString& file);

  /// Puts the file in its place. Throws EInOutError with the reason; nothing is left behind then.
  void commit();

  /// All in one. Throws EInOutError.
  static void replace(const QString& file, const QByteArray& bytes);

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override;

 private:
  [[noreturn]] void fail(const QString& reason) const;
  QString reason() const;

  QSaveFile out_;
  bool isShort_ = false;
};
