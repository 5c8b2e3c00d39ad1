#pragma once

#include "toolkit/grid/grid_column.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

/// The area above a grid that shows what it is grouped by, from the outside in; captions dragged into it group.
class GroupArea : public QWidget {
  Q_OBJECT
 public:
  explicit GroupArea(QWidget* parent);

  struct Level {
    QString field;
    QString caption;
    bool descending = false;
  };
  void setLevels(const std::vector<Level>& levels);
  /// A caption is held over the area, or no more.
  void setTargeted(bool targeted);

 Q_SIGNALS:
  void turned(const QString& field);
  void removed(const QString& field);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* row_;
  QLabel* prompt_;
  bool targeted_ = false;
};
