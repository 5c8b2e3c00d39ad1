#pragma once

#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>

#include <functional>
#include <utility>

/// Tells of the next paint of a grid's rows.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(const DataGrid& grid) : rows_(grid.view()->viewport()) { rows_->installEventFilter(this); }
  std::function<void()> afterPaint;

  /// Milliseconds from the begin of work to the painted rows.
  double painted(const std::function<void()>& work) {
    bool isPainted = false;
    afterPaint = [&] { isPainted = true; };
    QElapsedTimer timer;
    timer.start();
    work();
    while (!isPainted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return double(timer.nsecsElapsed()) / 1e6;
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && afterPaint) QTimer::singleShot(0, this, [then = std::exchange(afterPaint, {})] { then(); });
    return false;
  }

 private:
  QWidget* rows_;
};
