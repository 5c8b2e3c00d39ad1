#pragma once

#include "toolkit/grid/grid_condition.h"

#include <QHash>
#include <QTimer>
#include <QWidget>

class FilterCell;
class GridModel;
class QHeaderView;
class QLabel;

/// The row of search cells under a grid's header, one under each visible column. Shows a prompt while nothing is searched
/// for.
class FilterRow : public QWidget {
  Q_OBJECT
 public:
  /// A child of the header; places its cells under the header's sections.
  FilterRow(GridModel* model, QHeaderView* header);
  ~FilterRow() override;

  void setUpperCase(bool on) { upperCase_ = on; }
  bool upperCase() const { return upperCase_; }
  /// Waits for the last key before it tells of a change, in milliseconds.
  static constexpr int pauseMs = 200;

  GridCondition condition(int column) const { return conditions_.value(column, unset(column)); }
  const QHash<int, GridCondition>& conditions() const { return conditions_; }
  /// Tells of no change.
  void setCondition(int column, const GridCondition& condition);
  void clear();
  /// Marks a cell as wrong and tells why in its hint; an empty text takes the mark away.
  void setWrong(int column, const QString& reason);
  void focusCell(int column);
  FilterCell* cell(int column) const { return cells_.value(column); }

  /// Makes and places the cells anew.
  void arrange();
  /// Takes no room while it is false.
  void setShown(bool shown);
  bool isShown() const { return shown_; }

 Q_SIGNALS:
  void changed();
  /// A cell got the keyboard.
  void entered(int column);
  /// The user wants to go on in the rows.
  void left(int column);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  friend class FilterCell;
  /// Type that a cell searches by: a column that shows other texts than it stores is one of texts.
  FieldType typeOf(int column) const;
  GridCondition unset(int column) const;
  void edited(int column, const GridCondition& condition, bool atOnce);
  void leave(int column);
  void updatePrompt();

  GridModel* model_;
  QHeaderView* header_;
  QHash<int, FilterCell*> cells_;
  QHash<int, GridCondition> conditions_;
  QList<int> tabOrder_;
  QTimer pause_;
  QLabel* prompt_;
  bool upperCase_ = false;
  bool shown_ = false;
};
