#pragma once

#include "base/data/auto_refresh.h"
#include "toolkit/grid/grid_rows.h"
#include "toolkit/grid/table_content.h"

class GridModel;

/// What a grid shows, for paper and files.
class GridContent : public TableContent {
 public:
  /// columns: those to be shown, from left to right; expanded: with the rows of closed groups. The model must outlive it.
  GridContent(const GridModel& model, std::vector<int> columns, const std::function<int(int column)>& widthOf, bool expanded);

  int columnCount() const override { return int(columns_.size()); }
  ContentColumn column(int column) const override;
  int rowCount() const override;
  ContentRowKind rowKind(int row) const override;
  int level(int row) const override;
  QString groupText(int row) const override;
  QString text(int row, int column) const override;
  Value value(int row, int column) const override;
  QColor textColor(int row) const override;

 private:
  GridRow line(int row) const { return rows_.at(row + skipped_); }

  RefreshHold hold_;  ///< a preview stays open for a while
  const GridModel& model_;
  std::vector<int> columns_;
  std::vector<int> widths_;
  GridRows rows_;
  int skipped_ = 0;  ///< the line for a new row
};
