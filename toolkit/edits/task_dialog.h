#pragma once

#include <QString>

#include <memory>
#include <vector>

class QWidget;

enum class TaskIcon { None, Information, Warning, Error, Question };

struct TaskButton {
  int id;
  QString caption;
};

/// What a message dialog shows. All texts are plain.
struct TaskDialogRequest {
  QString title;
  QString instruction;  ///< large, above the text; empty leaves it out
  QString text;
  TaskIcon icon = TaskIcon::None;
  std::vector<TaskButton> buttons;
  int defaultButton = 0;  ///< id of the button that ENTER presses; 0 is the first
  int closeAfterMs = 0;   ///< closes itself after that time; 0 never
  bool beep = false;
  int cancelResult = 2;  ///< result of Escape, of the window's frame and of the time
};

/// The one door to message and file dialogs. Tests put a scripted one in place.
class DialogDriver {
 public:
  virtual ~DialogDriver() = default;
  virtual int runTaskDialog(QWidget* owner, const TaskDialogRequest& request);
  /// filter is Qt's ("Resim (*.jpg *.png)"); suffix, without its point, is added to a name that has none. Empty when the
  /// user gave up. proposed is the name that a file to save gets unless another one is written; letters that no file name
  /// holds are left out of it.
  virtual QString askOpenFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix);
  virtual QString askSaveFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix, const QString& proposed);
  /// One line of text, empty at first; empty as well when the user gave up.
  virtual QString askText(QWidget* owner, const QString& title, const QString& prompt);
};

/// Puts another driver in place and gives back the one before; null puts the real dialogs back.
std::unique_ptr<DialogDriver> setDialogDriver(std::unique_ptr<DialogDriver> driver);

/// Shows a message modally over owner (may be null) and gives the id of the pressed button. Afterwards the form that was
/// active, and within it the control, has the focus again.
int runTaskDialog(QWidget* owner, const TaskDialogRequest& request);
QString askOpenFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix);
QString askSaveFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix, const QString& proposed = {});
QString askText(QWidget* owner, const QString& title, const QString& prompt);
/// A message of text and icon alone, with the button "Tamam".
void showPlainMessage(QWidget* owner, TaskIcon icon, const QString& text);
