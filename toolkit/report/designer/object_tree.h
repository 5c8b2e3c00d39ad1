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
  void focusInEvent(QFocusEvent* event) override;

 private:
  void fill();
  void showSelection();
  void selectShown();
  /// Whoever works in the list by keys always stands on something.
  void selectCurrent();

  DesignCanvas& canvas_;
  QHash<ReportNode*, QTreeWidgetItem*> items_;
  QTimer* rest_;
  int place_ = 0;  ///< of what was current before the list was filled anew
  bool isShowing_ = false;
};
