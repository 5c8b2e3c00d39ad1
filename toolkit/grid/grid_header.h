#pragma once

#include "toolkit/grid/grid_column.h"

#include <QHeaderView>

class FilterRow;
class GridModel;

/// The captions of a grid's columns, with the filter row below them. A click sorts, with Shift as a further key, with Ctrl
/// it takes the column out of the order; columns are moved, and dragged out of the header to group.
class GridHeader : public QHeaderView {
  Q_OBJECT
 public:
  GridHeader(GridModel* model, QWidget* parent);

  FilterRow* filterRow() const { return filterRow_; }
  void setFilterRowShown(bool shown);
  /// The order whose signs stand at the captions.
  void setOrder(const std::vector<GridSort>& order);
  /// Widget that takes columns to group by.
  void setGroupTarget(QWidget* target) { groupTarget_ = target; }

  QSize sizeHint() const override;

 Q_SIGNALS:
  void sortAsked(int column, Qt::KeyboardModifiers modifiers);
  void groupAsked(int column);
  void menuAsked(int column, const QPoint& screenPlace);
  /// A column is dragged over the group target, or no more.
  void draggedOverTarget(bool over);

 protected:
  void updateGeometries() override;
  void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
  void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// Place of a column among the keys of the order; -1 when it is none.
  int sortPlace(int column) const;
  bool isOverTarget(const QMouseEvent& event) const;

  GridModel* model_;
  FilterRow* filterRow_;
  QWidget* groupTarget_ = nullptr;
  std::vector<GridSort> order_;
  int pressed_ = -1;         ///< column under the pressed mouse
  int pressedPlace_ = -1;    ///< visual index that it had
  int pressedSize_ = 0;
};
