#pragma once

#include "base/data/filter_expression.h"
#include "toolkit/grid/grid_column.h"

#include <QColor>
#include <QHash>
#include <QKeySequence>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class FilterBox;
class FilterRow;
class GridFooter;
class GridModel;
class GridView;
class GroupArea;
class QAction;
class TMyQuery;
class TableContent;

/// How rows come into a grid that is edited in place.
enum class GridEditing {
  None,
  NewItemRow,  ///< by a row on top, "Kayıt eklemek için tıklayın"
  Append,      ///< by the navigator, at the end
};

/// The data grid: a table over a query with sorting, grouping, a filter row, sums, a column chooser, incremental search
/// and, where a screen wants it, editing in place. Rows are counted as the query counts them, whatever order or grouping
/// the grid shows. The query's current row follows the grid's.
///
/// Keys. Arrows, Page, Home, End, Ctrl+Home, Ctrl+End move; Shift and Ctrl with them select. Letters search the column of
/// the cursor; Backspace takes one back, Ctrl+Down and Ctrl+Up go to the next and the previous hit, Escape ends the search.
/// Enter chooses the row (edits the cell in a grid that is edited in place), F2 edits. Ctrl+F goes to the filter row, Down
/// or Enter there back to the rows, Alt+Down there opens the operators, Escape empties the cell. Ctrl+Shift+F switches the
/// filter off and on, Ctrl+Shift+C clears it. Plus and minus open and close a group, Ctrl+plus and Ctrl+minus all of them.
/// Ctrl+Shift+S sorts by the column, Ctrl+Shift+G groups by it or takes it out, Ctrl+Shift+B fits its width, Ctrl+Alt+Left
/// and Ctrl+Alt+Right narrow and widen it, Ctrl+Shift+Left and Ctrl+Shift+Right move it, Ctrl+Shift+H hides it. Alt+F10 opens the header's menu, Ctrl+Shift+K the column chooser.
/// Ctrl+A selects all, Ctrl+C copies the selected rows. In place: Insert adds a row, Ctrl+Delete deletes it, Escape gives
/// the cell, then the row back.
class DataGrid : public QWidget {
  Q_OBJECT
 public:
  /// caption: what the grid shows, for those who hear it. A query that ends leaves the grid without rows.
  DataGrid(TMyQuery& query, std::vector<GridColumn> columns, const QString& caption, QWidget* parent = nullptr);
  ~DataGrid() override;

  // How the grid is; set once by its screen.
  void setMultiSelect(bool on);
  /// Filter row under the header and the filter box below; off until asked for.
  void setFilterRow(bool on);
  /// The filter box stands above the rows.
  void setFilterBoxOnTop();
  /// A command that the menu of the rows offers; not owned.
  void addRowCommand(QAction* command);
  /// Keys typed into the filter row become Turkish capitals.
  void setFilterUpperCase(bool on);
  /// The area above the header that groups by what is dragged into it; off until asked for.
  void setGroupArea(bool on);
  void setEditing(GridEditing editing);
  void setEmptyText(const QString& text);
  /// Colour of a row's text; an invalid one is the usual.
  void setRowColor(std::function<QColor(int row)> color);
  /// Called when the order changes, also by a restored layout or while the query is closed, in place of the grid's own
  /// sorting in memory; reads the rows again in that order. The keys are those of the headers, without the groups'.
  void setSortHandler(std::function<void(const std::vector<GridSort>& order)> handler);
  /// Asked before a filter narrows the rows; true means that the screen has seen to it itself. Nothing is no filter.
  void setFilterHandler(std::function<bool(const std::optional<FilterExpression>& filter)> handler);

  // What it shows.
  TMyQuery& query() const;
  const std::vector<GridColumn>& columns() const;
  /// Row of the query under the cursor; -1 on a group, on the new-item row and when there is none.
  int currentRow() const;
  /// Puts the cursor on a row of the query, opening its groups, and selects it.
  void setCurrentRow(int row);
  /// First data row as shown; nothing happens when there is none.
  void goToFirstRow();
  /// Rows of the query that are selected, as shown from top to bottom.
  std::vector<int> selectedRows() const;
  /// True when a data row is selected; asked while the program is idle.
  bool hasSelectedRow() const;
  void clearSelection();
  /// Runs what reads the rows again: cursor and selection stay on their records, which the query's key tells. When the
  /// record under the cursor is gone, the cursor stays where it was with nothing selected, so that no command meets another
  /// record unasked.
  void keepRecords(const std::function<void()>& read);
  /// Deletes the selected rows through the query, one by one. Throws EDatabaseError; rows before the failing one are gone.
  void deleteSelectedRows();

  /// The filter row's conditions as one expression; nothing when it is empty.
  std::optional<FilterExpression> filter() const;
  /// Puts a condition into a column's cell of the filter row and filters.
  void setColumnFilter(const QString& field, FilterOperator comparison, const QString& text = {}, const QString& upper = {});
  /// Filters by an expression that the filter row cannot tell; the filter box spells it out. Nothing takes it away.
  void setFilter(std::optional<FilterExpression> expression);
  /// Takes all conditions away.
  void clearFilter();
  void setFilterEnabled(bool on);
  bool isFilterEnabled() const { return filterEnabled_; }

  std::vector<GridSort> order() const;
  void setOrder(std::vector<GridSort> order);
  void clearSorting() { setOrder({}); }
  QStringList grouping() const;
  void setGrouping(const QStringList& fields);
  void clearGrouping() { setGrouping({}); }
  /// Groups are ordered by what is shown ("2.1." before "10.1."), not by value.
  void setGroupsComparedAsText(bool on) { groupsAsText_ = on; }
  void setAllExpanded(bool expanded);
  /// Field of the column that the cursor stands in; empty when there is none.
  QString currentField() const;
  /// The last visible column stays.
  void setColumnVisible(const QString& field, bool visible);
  bool isColumnVisible(const QString& field) const;
  void openColumnChooser();
  /// Fills the menu of a column's header with its commands.
  void fillHeaderMenu(QMenu& menu, const QString& field);

  /// Writes the row in edit, if there is one; false when it was refused and stays in edit. To be asked before the grid's
  /// screen closes.
  bool postEdits();

  /// Order, widths, visibility, grouping and sorting of the columns, as text in a file. Storing throws EInOutError.
  void storeLayout(const QString& file) const;
  /// What the file lacks, or tells wrongly, stays as the screen describes it. False when there is no such file or it is no
  /// layout; nothing is thrown.
  bool restoreLayout(const QString& file);
  void resetLayout();

  /// The visible columns and all rows that pass the filter, in groups as shown; with expanded, those of closed groups too.
  /// Valid until the query changes.
  std::unique_ptr<TableContent> content(bool expanded) const;

  GridView* view() const { return view_; }
  GridFooter* footer() const { return footer_; }
  GridModel* model() const { return model_; }
  FilterRow* filterRow() const { return filterRow_; }

 Q_SIGNALS:
  /// Enter or a double click on a data row.
  void rowChosen(int row);
  void currentRowChanged(int row);
  /// What was typed was not taken; message says why.
  void rejected(const QString& message);

 private:
  void build(const QString& caption);
  void buildCommands();
  void buildNavigator();
  void addKey(const QString& name, const QKeySequence& key, std::function<void()> work);
  void rowsRead();
  /// What is filtered by, and how many rows are left.
  void showFilter();
  void cursorMoved(int line);
  void applyFilter();
  QByteArray keyOf(int row) const;
  QString inForceText() const;
  void applyOrder();
  void applyGrouping(std::vector<GridSort> levels);
  void showGrouping();
  void sortBy(const QString& field, Qt::KeyboardModifiers modifiers);
  void toggleGroup(const QString& field);
  void moveColumn(int by);
  void fitColumn(int column);
  void widenColumn(int by);
  void step(int by);
  void addRow();
  void copySelection() const;

  GridModel* model_;
  GridView* view_;
  FilterRow* filterRow_;
  FilterBox* filterBox_ = nullptr;
  GroupArea* groupArea_ = nullptr;
  GridFooter* footer_ = nullptr;
  QWidget* navigator_ = nullptr;
  GridEditing editing_ = GridEditing::None;
  std::vector<GridSort> order_;
  std::optional<FilterExpression> ownFilter_;  ///< what the filter row cannot tell
  std::optional<FilterExpression> inForce_;
  bool filterEnabled_ = true;
  bool groupsAsText_ = false;
  std::function<void(const std::vector<GridSort>&)> sortHandler_;
  std::function<bool(const std::optional<FilterExpression>&)> filterHandler_;
  QHash<int, int> widths_;  ///< of hidden columns
};
