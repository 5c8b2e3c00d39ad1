#pragma once

#include "base/data/value.h"
#include "toolkit/grid/table_content.h"

#include <vector>

/// A table made of values, for what prints and exports.
class ListedContent : public TableContent {
 public:
  struct Row {
    ContentRowKind kind = ContentRowKind::Data;
    std::vector<Value> cells = {};
    QString group = {};
    int level = 0;
  };
  std::vector<ContentColumn> columns;
  std::vector<Row> rows;

  int columnCount() const override { return int(columns.size()); }
  ContentColumn column(int column) const override { return columns[size_t(column)]; }
  int rowCount() const override { return int(rows.size()); }
  ContentRowKind rowKind(int row) const override { return rows[size_t(row)].kind; }
  int level(int row) const override { return rows[size_t(row)].level; }
  QString groupText(int row) const override { return rows[size_t(row)].group; }
  QString text(int row, int column) const override { return value(row, column).toText(); }
  Value value(int row, int column) const override {
    const auto& cells = rows[size_t(row)].cells;
    return size_t(column) < cells.size() ? cells[size_t(column)] : Value();
  }
  QColor textColor(int) const override { return {}; }
};
