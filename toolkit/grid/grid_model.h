#pragma once

#include "base/data/query_listener.h"
#include "toolkit/grid/grid_column.h"
#include "toolkit/grid/grid_rows.h"

#include <QAbstractTableModel>
#include <QColor>

class TMyQuery;
class Value;

/// The lines of a grid as a table model: data rows of a query, group lines, group footers and the line for a new row.
/// Columns are counted as the screen describes them.
class GridModel : public QAbstractTableModel, private QueryListener {
  Q_OBJECT
 public:
  /// A query that ends leaves the model without rows.
  GridModel(TMyQuery& query, std::vector<GridColumn> columns, QObject* parent = nullptr);
  ~GridModel() override;

  TMyQuery& query() const { return *query_; }
  const std::vector<GridColumn>& columns() const { return columns_; }
  /// Number of the column with that field; -1 when there is none.
  int columnOf(const QString& field) const;
  /// Field of the query that a column shows; -1 when the query lacks it or is closed.
  int fieldOf(int column) const { return fields_.empty() ? -1 : fields_[size_t(column)]; }
  bool isNumber(int column) const;
  const GridRows& rows() const { return rows_; }
  GridRow row(int line) const { return rows_.at(line); }
  static QString newItemHint();

  // How the lines come about. Each of these reads no row anew.
  void setOrder(std::vector<GridSort> order);
  void setGrouping(std::vector<GridSort> levels, bool asText);
  void setExpanded(int group, bool expanded);
  void setAllExpanded(bool expanded);
  void openGroupsOf(int queryRow);
  void setRowColor(std::function<QColor(int row)> color) { rowColor_ = std::move(color); }
  QColor rowColor(int queryRow) const { return rowColor_ && queryRow >= 0 ? rowColor_(queryRow) : QColor(); }

  // What stands in the cells.
  Value valueAt(int queryRow, int column) const;
  QString shownAt(int queryRow, int column) const;
  /// Of a closed group with its sums, as nothing stands under it.
  QString groupText(const GridGroup& group) const;
  /// Text and number under a column in the footer of a group; empty and NULL where nothing stands.
  QString groupFooterText(const GridGroup& group, int column) const;
  Value groupFooterValue(const GridGroup& group, int column) const;
  /// The same for the footer of the whole grid.
  QString footerText(int column) const;
  Value footerValue(int column) const;
  bool hasFooter() const;
  bool hasGroupFooter() const;

  // Editing in place. The row in edit is written by postRow.
  void setEditable(bool editable, bool newItemRow);
  bool isEditable() const { return editable_; }
  bool isEditingRow() const;
  /// Line that is being edited; -1 when none is.
  int editingLine() const;
  /// Adds a row behind the others and puts it into edit; gives its line. Throws EDatabaseError.
  int appendRow();
  /// Writes the row in edit, if there is one; an added row that nothing was typed into goes away instead. Throws what
  /// TMyQuery::Post throws; the row is left in edit then.
  void postRow();
  void cancelRow();
  /// Deletes a row of the query. Throws EDatabaseError.
  void deleteRow(int queryRow);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 Q_SIGNALS:
  /// A typed value was not taken; message says why.
  void rejected(const QString& message);
  /// The rows that the footers count are others.
  void summariesChanged();

 private:
  void queryReset() override;
  void rowChanged(int row) override;
  void rowInserted(int row) override;
  void rowRemoved(int row) override;
  void queryEnds() override;

  void learnFields();
  void rebuildLines();
  void layOutGroups();
  Value storedValue(int column, const QString& text) const;
  QString editText(int queryRow, int column) const;

  TMyQuery* query_;
  std::vector<GridColumn> columns_;
  std::vector<int> fields_;  ///< per column; empty while the query is closed
  GridRows rows_;
  std::function<QColor(int)> rowColor_;
  bool editable_ = false;
  bool isUntouched_ = false;  ///< the row in edit was added, and nothing has been typed into it
};
