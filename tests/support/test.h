#pragma once

// What every test includes, compiled once.
#include <gmock/gmock.h>

#include <QtCore>

using namespace Qt::StringLiterals;

/// Failures show texts as texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

/// What a file holds; nothing when it cannot be read.
inline QByteArray contentOf(const QString& file) {
  QFile in(file);
  return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

/// Writes a file anew.
inline void put(const QString& file, const QByteArray& bytes) {
  QFile out(file);
  const bool isWritten = out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush();
  if (!isWritten) throw std::runtime_error("not written: " + file.toStdString());
}

/// A shell script in the place of a program.
inline void putScript(const QString& file, const QByteArray& commands) {
  put(file, "#!/bin/sh\n" + commands);
  QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// What a program prints; nothing when it fails.
inline QString outputOf(const QString& program, const QStringList& arguments, const QByteArray& input = {}) {
  QProcess process;
  process.start(program, arguments);
  process.write(input);
  process.closeWriteChannel();
  return process.waitForFinished(120'000) && process.exitCode() == 0 ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}
