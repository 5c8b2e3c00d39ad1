#pragma once

#include <QGuiApplication>

/// The hourglass as cursor for as long as this object lives. They may nest. Main thread.
class Hourglass {
 public:
  Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
  Q_DISABLE_COPY_MOVE(Hourglass)
};
