#pragma once

#include "toolkit/grid/grid_condition.h"

#include <QWidget>

class FilterRow;
class LookupEdit;
class QLineEdit;
class QToolButton;

/// One search cell: a button with the comparison's sign, and what is searched for. Down or Enter go to the rows, Alt+Down
/// opens the comparisons, Escape empties the cell.
class FilterCell : public QWidget {
  Q_OBJECT
 public:
  FilterCell(FilterRow* row, const GridColumn& column, int number, FieldType type);

  void show(const GridCondition& condition);
  void setWrong(const QString& reason);
  QLineEdit* line() const { return line_; }
  void openComparisons();
  void setSignShown(bool shown);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();
  void refreshChoices();
  void goToRows();
  void typed(const QString& text, bool atOnce);
  void choose(FilterOperator comparison, const QString& text);

  FilterRow* row_;
  int number_;
  FieldType type_;
  std::vector<GridListValue> values_;  ///< offered with the comparisons
  FilterOperator comparison_;
  bool signShown_ = false;
  QToolButton* sign_;
  QLineEdit* line_;
  LookupEdit* lookUp_ = nullptr;
  std::function<void()> refreshChoices_;
};
