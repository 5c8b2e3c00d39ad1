#pragma once

#include "toolkit/edits/task_dialog.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

/// Answers dialogs in place of a user for as long as it lives, and keeps what was shown.
class ScriptedDialogs {
 public:
  ScriptedDialogs() : previous_(setDialogDriver(std::make_unique<Driver>(*this))) {}
  ~ScriptedDialogs() { setDialogDriver(std::move(previous_)); }
  ScriptedDialogs(const ScriptedDialogs&) = delete;
  ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

  std::deque<int> answers;    ///< of the next dialogs
  std::optional<int> answer;  ///< of those behind them; without one they are cancelled
  QString file;               ///< that a file dialog gives
  QStringList texts;
  std::vector<TaskDialogRequest> shown;
  std::function<void()> onShown = [] {};  ///< looks at the program while a dialog stands open

 private:
  class Driver : public DialogDriver {
   public:
    explicit Driver(ScriptedDialogs& script) : script_(script) {}
    int runTaskDialog(QWidget*, const TaskDialogRequest& request) override {
      script_.shown.push_back(request);
      script_.texts.append(request.text);
      script_.onShown();
      if (request.buttons.size() == 1) return request.buttons.front().id;
      if (script_.answers.empty()) return script_.answer.value_or(request.cancelResult);
      const int answer = script_.answers.front();
      script_.answers.pop_front();
      return answer;
    }
    QString askOpenFile(QWidget*, const QString&, const QString&, const QString&) override { return script_.file; }
    QString askSaveFile(QWidget*, const QString&, const QString&, const QString&, const QString&) override { return script_.file; }

   private:
    ScriptedDialogs& script_;
  };

  std::unique_ptr<DialogDriver> previous_;
};
