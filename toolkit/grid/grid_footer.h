#pragma once

#include <QTimer>
#include <QWidget>

#include <vector>

class GridModel;
class GridView;

/// Counts and sums under the columns of a grid, scrolling with them. They are worked out when nothing else is to be done,
/// so that the rows come up first. A sum under the pointer is spelled out with its name.
class GridFooter : public QWidget {
  Q_OBJECT
 public:
  GridFooter(GridModel* model, GridView* view, QWidget* parent);

  /// What stands under a column, worked out if it was not.
  QString textOf(int column);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString spelledOut(int column) const;
  void workOut();

  GridModel* model_;
  GridView* view_;
  std::vector<QString> texts_;
  bool stale_ = true;  ///< the texts are those of other rows
  QTimer idle_;
};
