#pragma once

#include <QWidget>

class DesignCanvas;

/// Millimetres along one side of the canvas, counted from the page's margin as objects are; shows where the pointer is and
/// what is selected.
class Ruler : public QWidget {
  Q_OBJECT
 public:
  Ruler(DesignCanvas& canvas, Qt::Orientation orientation, QWidget* parent = nullptr);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  DesignCanvas& canvas_;
  Qt::Orientation orientation_;
  double pointer_ = -1;  ///< mm on the paper
};
