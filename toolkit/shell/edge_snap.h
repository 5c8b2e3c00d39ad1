#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

/// A window that is let go within a few pixels of an edge of its screen is put against that edge.
class EdgeSnap : public QObject {
  Q_OBJECT
 public:
  /// distance: in logical pixels.
  EdgeSnap(QWidget* window, int distance);

  /// Where a frame of that place and size goes on a screen whose free area is given.
  static QPoint snapped(const QRect& frame, const QRect& area, int distance);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void snap();

  QWidget* window_;
  int distance_;
  QTimer letGo_;  ///< a window in the user's hand tells of many places
};
