#pragma once

#include "toolkit/grid/grid_column.h"

#include <optional>

/// What a user may change about a grid's columns.
struct GridLayout {
  struct Column {
    QString field;
    int width = 0;  ///< logical pixels
    bool visible = true;
    bool operator==(const Column&) const = default;
  };
  std::vector<Column> columns;  ///< from left to right
  std::vector<GridSort> groups;
  std::vector<GridSort> order;
  bool operator==(const GridLayout&) const = default;
};

namespace GridLayouts {

/// Replaces the file in one step. Throws EInOutError.
void write(const GridLayout& layout, const QString& file);
/// Nothing when there is no such file or it is no layout. Lines that cannot be read are passed over.
std::optional<GridLayout> read(const QString& file);

}  // namespace GridLayouts
