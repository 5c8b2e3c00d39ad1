#pragma once

#include "base/data/field_codec.h"
#include "base/data/filter_expression.h"
#include "toolkit/grid/grid_column.h"

#include <optional>

class TMyQuery;

/// What stands in one cell of the filter row.
struct GridCondition {
  FilterOperator comparison = FilterOperator::Contains;
  QString text;  ///< of Between both ends, parted by ".."
  bool isEmpty() const;
  bool operator==(const GridCondition&) const = default;
};

namespace GridConditions {

/// What a cell does with a text when nobody chose: numbers are equal, everything else contains.
FilterOperator usual(FieldType type);
/// What a user may choose for a column of that type.
std::vector<FilterOperator> offered(FieldType type);
/// "içerir", "ile başlar", …
QString caption(FilterOperator comparison);
/// The sign for the button before the cell: "∋", "=", "≥", …
QString sign(FilterOperator comparison);

struct Period {
  QString caption;
  QString text;  ///< a day, or two parted by ".."
};
/// Days, weeks (from Monday) and months around today, for date columns.
std::vector<Period> periods(QDate today);

/// A cell's condition on a column of the open query. A text may begin with =, <>, <, <=, > or >= in columns of numbers and
/// dates, and ".." parts the ends of a range, whatever comparison was chosen; a part of a date ("05.2026") is looked for in the shown text. In
/// a column that shows other texts than it stores, the shown ones count. Nothing for an empty cell. Throws EConvertError for a text that
/// does not fit the column, EDatabaseError for a column that the query lacks.
std::optional<FilterExpression> expression(const TMyQuery& query, const GridColumn& column, const GridCondition& condition);

}  // namespace GridConditions
