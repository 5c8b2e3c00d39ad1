#pragma once

#include "toolkit/grid/grid_column.h"

/// Columns of the reminder window's pages: those told first are shown, all others can be chosen.
namespace ReminderColumns {

std::vector<GridColumn> slipsOfDay();
std::vector<GridColumn> dueContracts();
std::vector<GridColumn> overdueSlips();

}  // namespace ReminderColumns
