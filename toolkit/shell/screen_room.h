#pragma once

#include <QScrollArea>

/// What stands between a dialog's edge and its buttons: as high as it wants to be, or as the screen has room for, in which case
/// it is scrolled. The buttons below it stay in sight.
class ScreenRoom : public QScrollArea {
  Q_OBJECT
 public:
  /// Takes the content over.
  explicit ScreenRoom(QWidget* content);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  QSize bounded(QSize wanted) const;
};

/// A dialog's wanted size, or what its screen has room for, in logical pixels.
QSize withinScreen(const QWidget& dialog, QSize wanted);
/// The same for a picture in a dialog, which keeps its shape.
QSize pictureWithinScreen(const QWidget& dialog, QSize wanted);
