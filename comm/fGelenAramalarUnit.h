#pragma once

#include "toolkit/shell/window_place.h"

#include <QDate>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class DataGrid;
class TMyQuery;

/// "Gelen Aramalar": the calls that the telephone monitor wrote, with the customers behind their numbers; those of today at
/// first. Read only; stands beside the other windows.
class TfGelenAramalar : public QWidget {
  Q_OBJECT
  const std::unique_ptr<TMyQuery> query_;

 public:
  /// mainForm: whose lower right corner it comes up in as long as nobody has moved it. Works on DM's connection.
  explicit TfGelenAramalar(QWidget* mainForm);
  ~TfGelenAramalar() override;

  /// Reads today's calls and shows the window. Throws EDatabaseError.
  void Giris();
  /// Reads the calls again where they are on the screen: at once, or, while the list rests after a reading, once behind it, so
  /// that a flood of calls leaves the screen usable. Throws EDatabaseError.
  void refreshIfShown();

  TMyQuery& qCaller;
  DataGrid* grid() const { return grid_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Escape that nothing within uses closes the window, as it does dialogs.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void openFor(std::optional<QDate> day);

  DataGrid* grid_;
  WindowPlace place_;
  bool wasShown_ = false;
  bool isOpening_ = false;
  QTimer rest_;
  bool isStale_ = false;  ///< a call came in during the rest
  std::optional<QDate> day_;  ///< the calls that were read; nothing is all of them
};

/// The one instance; null before it is created and after it is gone.
extern TfGelenAramalar* fGelenAramalar;
