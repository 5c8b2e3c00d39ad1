#pragma once

#include "toolkit/grid/grid_column.h"

/// Columns of the tables that show slips and their lines.
namespace SlipTables {

/// The page "Malzemeler", with the sums of its footer.
std::vector<GridColumn> lineColumns();
/// All columns of a slip, with sums, as the list of slips shows them.
std::vector<GridColumn> browserColumns();
/// The same as the history pages show them: without sums, and with their own list of statuses.
std::vector<GridColumn> historyColumns();

}  // namespace SlipTables
