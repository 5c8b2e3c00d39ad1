#pragma once

#include <QProcess>
#include <QStringList>

/// A user's program in a process of its own (slip_user.cpp), told what to do as he would. Everything throws
/// std::runtime_error when the program does not answer.
class UserProgram {
 public:
  explicit UserProgram(const QString& name);
  /// Ends the program; a failure of the test when it does not end well.
  ~UserProgram();
  UserProgram(const UserProgram&) = delete;
  UserProgram& operator=(const UserProgram&) = delete;

  /// What a save tells that went well.
  static QString saved();

  /// Sends a command, without waiting for its answer.
  void begin(const QStringList& words);
  QString answer();
  QString run(const QStringList& words);
  /// What dialogs and balloon said, joined by "|".
  QString save() { return run({QStringLiteral("save")}); }
  /// Opens a new slip that may be saved; gives the number that it proposes.
  QString takeIn(const QString& customer);
  void set(const QString& column, const QString& text) { run({QStringLiteral("set"), column, text}); }
  /// Whether a slip window is open.
  bool isOpen() { return run({QStringLiteral("isOpen")}) == QStringLiteral("yes"); }

 private:
  QProcess process_;
};
