#pragma once

#include "toolkit/edits/task_dialog.h"

#include <QStringList>

#include <deque>
#include <memory>

/// Answers message dialogs in place of a user for as long as it lives, and keeps what was shown.
class ScriptedDialogs {
 public:
  ScriptedDialogs() : previous_(setDialogDriver(std::make_unique<Driver>(*this))) {}
  ~ScriptedDialogs() { setDialogDriver(std::move(previous_)); }
  ScriptedDialogs(const ScriptedDialogs&) = delete;
  ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

  std::deque<int> answers;  ///< of the next dialogs; without one, the dialog is cancelled
  std::vector<TaskDialogRequest> shown;
  QStringList texts() const {
    QStringList all;
    for (const TaskDialogRequest& request : shown) all += request.text;
    return all;
  }

 private:
  class Driver : public DialogDriver {
   public:
    explicit Driver(ScriptedDialogs& script) : script_(script) {}
    int runTaskDialog(QWidget*, const TaskDialogRequest& request) override {
      script_.shown.push_back(request);
      if (script_.answers.empty()) return request.cancelResult;
      const int answer = script_.answers.front();
      script_.answers.pop_front();
      return answer;
    }

   private:
    ScriptedDialogs& script_;
  };

  std::unique_ptr<DialogDriver> previous_;
};
