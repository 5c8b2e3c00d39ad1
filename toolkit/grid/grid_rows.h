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
  mutable QHash<int, double> sums = {};  ///< per summed field; see GridRows::groupSum
  mutable std::vector<int> rows = {};    ///< of a closed group whose sums were not asked for yet
};

/// Which lines a grid shows over a query's rows: sorted in memory, in groups, with a line for a new row. Without sorting and
/// grouping nothing is kept per row.
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
  /// Fields whose sums stand in a footer of each group; withFooters shows the footers.
  void setGroupSums(QStringList fields, bool withFooters);
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
  const GridGroup& group(int number) const { return groups_[size_t(number)]; }
  /// Sum of a field of the query over a group's rows; 0 for one that is not summed.
  double groupSum(const GridGroup& group, int field) const;

  void setExpanded(int group, bool expanded);
  void setAllExpanded(bool expanded);
  /// Opens the groups that a row of the query stands in; true when one was closed.
  bool openGroupsOf(int queryRow);

 private:
  QByteArray keyOf(int queryRow, int field) const;
  const ShownText* shownTextOf(int field) const;
  void sumUp(const GridGroup& group, const std::vector<int>& rows) const;
  QString shownAt(int queryRow, int field) const;
  std::vector<int> ranksOf(const std::vector<int>& rows, int field) const;
  void sortRows(std::vector<int>& rows) const;
  void addLevel(std::vector<int>& rows, size_t level, const QByteArray& path);
  bool isExpanded(const QByteArray& path) const { return expanded_.value(path, allExpanded_); }

  const TMyQuery* query_;
  std::vector<GridSort> order_;
  std::vector<GridSort> levels_;
  bool groupsAsText_ = false;
  QStringList sumFields_;
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
  std::vector<GridGroup> groups_;
};
