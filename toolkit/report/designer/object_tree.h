#pragma once

#include <QHash>
#include <QTreeWidget>

class DesignCanvas;
class QTimer;
class ReportNode;

/// The page's bands and what stands in them, as a list: the way to an object that lies below others, and by keys alone.
class ObjectTree : public QTreeWidget {
  Q_OBJECT
 public:
  explicit ObjectTree(DesignCanvas& canvas, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void fill();
  void showSelection();
  void selectShown();

  DesignCanvas& canvas_;
  QHash<ReportNode*, QTreeWidgetItem*> items_;
  QTimer* rest_;
  bool isShowing_ = false;
};
