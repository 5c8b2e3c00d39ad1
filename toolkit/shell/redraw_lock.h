#pragma once

#include <QPointer>
#include <QWidget>

/// Switches a widget's painting off while at least one frame holds it; frames may nest. At the last release the widget,
/// its frame and all its children are painted anew, once.
class RedrawLock {
 public:
  explicit RedrawLock(QWidget* widget) : widget_(widget) {}

  void acquire();
  void release();
  qint32 count() const { return count_; }

 private:
  QPointer<QWidget> widget_;
  qint32 count_ = 0;
};
