#pragma once

#include "toolkit/edits/task_dialog.h"

#include <QString>

#include <chrono>
#include <functional>
#include <mutex>
#include <random>
#include <stdexcept>

class QDialog;
class QObject;

/// The program did not come to where it was waited for.
class NotReached : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Chance that a seed decides. For one thread.
class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  /// 0 to below.
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(engine_); }
  bool oneIn(int number) { return below(number) == 0; }

 private:
  std::mt19937 engine_;
};

/// Works the program from a thread of its own. What is asked of the program runs on the main thread as its own slots do: one
/// after the other, and not in the middle of a statement.
class Hands {
 public:
  /// Comes back when the work is through. Throws NotReached when it has not come to its end in the time.
  static void run(const std::function<void()>& work, std::chrono::seconds time = std::chrono::seconds(120));
  /// Comes back at once: for what opens a modal window.
  static void start(const std::function<void()>& work);
  /// Waits until the question is answered with true. False after the time.
  static bool waitFor(const std::function<bool()>& question, std::chrono::seconds time = std::chrono::seconds(60));
  /// Starts what opens a modal window, and waits for it. False when none came.
  static bool open(const std::function<void()>& work);
  /// Closes what is open over the workspace, and its child windows. Throws NotReached.
  static void goHome();
};

/// The modal window in front; null when there is none. Main thread.
QDialog* dialogInFront();
/// Runs the command of the workspace of that name, when it is enabled. Main thread.
void runCommand(const QString& objectName);
/// Runs a command within a window, when it is there and enabled. Main thread.
void runCommandIn(const QObject& window, const QString& objectName);

/// Answers messages as a user does, by a click on a button of the real dialog.
class Answers : public DialogDriver {
 public:
  explicit Answers(unsigned seed) : chance_(seed) {}
  int runTaskDialog(QWidget* owner, const TaskDialogRequest& request) override;
  QString askOpenFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
  QString askSaveFile(QWidget*, const QString&, const QString&, const QString&, const QString&) override { return {}; }
  QString askText(QWidget*, const QString&, const QString&) override;

 private:
  Chance chance_;
};
