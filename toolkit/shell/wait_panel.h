#pragma once

#include "base/data/server_wait.h"
#include "base/guard.h"
#include "toolkit/shell/hourglass.h"

#include <QElapsedTimer>
#include <QPointer>

#include <optional>

class QWidget;

/// Keeps the windows painted while the server lets a statement wait, and says so after a second. What the user types and
/// clicks meanwhile waits as well, and so does everything that the program does by itself. One per program, in place for as
/// long as it lives.
class WaitPanel : public WaitObserver {
 public:
  WaitPanel();
  ~WaitPanel() override;
  void waitBegins() override;
  void waiting() override;
  void waitEnds() override;

 private:
  void show();

  std::optional<GuardedPause> pause_;
  std::optional<Hourglass> hourglass_;
  QElapsedTimer since_;
  QPointer<QWidget> panel_;
};
