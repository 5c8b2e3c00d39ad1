#pragma once

#include "toolkit/grid/query_model.h"

/// Columns of the tables that show slips and their lines.
namespace SlipTables {

/// The page "Malzemeler", with the sums of its footer.
std::vector<QueryColumn> lineColumns();
/// A slip's columns, as the history pages and the browser caption them.
std::vector<QueryColumn> slipColumns();

}  // namespace SlipTables
