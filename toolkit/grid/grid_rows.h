#pragma once

#include "toolkit/grid/grid_column.h"

#include <QByteArray>
#include <QHash>

class TMyQuery;

enum class GridRowKind : quint8 { Data, Group, GroupFooter, NewItem };

/// One line of a grid.
struct GridRow {
  GridRowKind kind = GridRowKind::Data;
  quint8 level = 0;  ///< groups that the line stands in
  int index = -1;    ///< Data: row of the query; Group, GroupFooter: number of the group
  bool operator==(const GridRow&) const = default;
};

struct GridGroup {
  int level = 0;
  int field = -1;      ///< of the query
  int sampleRow = -1;  ///< a row of the query that belongs to it
  int count = 0;       ///< rows in it
  bool expanded = false;
  QByteArray path;     ///< tells it from all other groups, also after the rows were read again
  std::vector<int> rows = {};            ///< in their order; none once it is divided
  std::vector<GridGroup> parts = {};     ///< groups of the next level; made when it is first open
  mutable QHash<int, double> sums = {};  ///< per summed field, as far as they were asked for; see GridRows::groupSum
};

/// Which lines a grid shows over a query's rows: sorted in memory, in groups, with a line for a new row. Without sorting and
/// grouping nothing is kept per row. A copy is laid out before it is asked.
class GridRows {
 public:
  /// The query must outlive it, or be replaced by another one and the lines worked out anew.
  explicit GridRows(const TMyQuery& query) : query_(&query) {}
  void setQuery(const TMyQuery& query) { query_ = &query; }

  /// Sorting in memory; an empty list leaves the query's own order. Takes effect with rebuild, as all that is set here.
  void setOrder(std::vector<GridSort> order) { order_ = std::move(order); }
  /// Levels of grouping from the outside in; asText orders the groups by what is shown, not by value.
  void setGrouping(std::vector<GridSort> levels, bool asText);
  const std::vector<GridSort>& grouping() const { return levels_; }
  /// Whether each open group ends with a footer.
  void setGroupFooters(bool shown) { footers_ = shown; }
  /// A column whose rows are ordered and grouped by the text that a value is shown as.
  struct ShownText {
    QString field;
    std::function<QString(const Value& value)> textOf;
  };
  void setShownTexts(std::vector<ShownText> columns) { shownTexts_ = std::move(columns); }
  void setNewItemRow(bool shown) { newItemRow_ = shown; }
  /// Row of the query that is being written in the line for a new row, -1 for none; it has no line of its own.
  void setHiddenRow(int row) { hiddenRow_ = row; }
  int hiddenRow() const { return hiddenRow_; }

  /// Works the lines out anew.
  void rebuild();
  /// Works the lines out anew after groups were opened or closed, all else being as it was.
  void layOut();
  // How the lines follow single rows while nothing is grouped. New rows come at the end, also of sorted ones, and stay there
  // until the lines are worked out anew.
  /// The query's last row is new; hidden: it is written in the line for a new row.
  void append(bool hidden);
  /// The hidden row was written and gets a line of its own, the last one.
  void showHiddenRow();
  /// The hidden row is gone.
  void dropHiddenRow();
  /// A row is gone from the query; its line is still counted, with the index -1, until it is dropped. Gives the line.
  int loseRow(int queryRow);
  void dropLostRow(int line);
  /// With groups: the query's last row is being written and stands behind all of them; -1 for none. Takes effect with rebuild.
  void setRowBehindGroups(int row) { rowBehindGroups_ = row; }

  int count() const;
  GridRow at(int line) const;
  /// Line of a row of the query; -1 when its group is closed.
  int lineOf(int queryRow) const;
  bool hasNewItemRow() const { return newItemRow_; }
  bool isGrouped() const { return !levels_.empty(); }
  const GridGroup& group(int number) const { return *groups_[size_t(number)]; }
  /// Sum of a field of the query over a group's rows; 0 for a field that it lacks (-1).
  double groupSum(const GridGroup& group, int field) const;

  // Take effect with layOut.
  void setExpanded(int group, bool expanded);
  void setAllExpanded(bool expanded);
  /// Opens the groups that a row of the query stands in; true when one was closed.
  bool openGroupsOf(int queryRow);

 private:
  QByteArray keyOf(int queryRow, int field) const;
  const ShownText* shownTextOf(int field) const;
  QString shownAt(int queryRow, int field) const;
  std::vector<int> ranksOf(const std::vector<int>& rows, int field) const;
  void sortRows(std::vector<int>& rows) const;
  size_t usableLevel(size_t level) const;
  std::vector<std::vector<int>> partsOf(const std::vector<int>& rows, int field) const;
  std::vector<GridGroup> divided(const std::vector<int>& rows, size_t level, const QByteArray& path) const;
  void addLines(GridGroup& group);
  bool isExpanded(const QByteArray& path) const { return expanded_.value(path, allExpanded_); }

  const TMyQuery* query_;
  std::vector<GridSort> order_;
  std::vector<GridSort> levels_;
  bool groupsAsText_ = false;
  bool footers_ = false;
  bool newItemRow_ = false;
  int hiddenRow_ = -1;
  int lostRow_ = -1;
  int rowBehindGroups_ = -1;
  std::vector<ShownText> shownTexts_;
  bool allExpanded_ = false;
  QHash<QByteArray, bool> expanded_;
  int plainRows_ = 0;           ///< rows of the query when no line is kept per row
  bool plain_ = true;
  std::vector<GridRow> lines_;  ///< otherwise
  std::vector<GridGroup> outermost_;
  std::vector<GridGroup*> groups_;  ///< that have lines, by their numbers
};
