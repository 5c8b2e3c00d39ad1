#pragma once

#include "toolkit/grid/grid_column.h"

/// Columns as the card lists describe them.
namespace CardColumns {

GridColumn shown(const QString& field, const QString& caption, int width);
/// Takes the room that is left.
GridColumn stretching(const QString& field, const QString& caption, int width);
/// Not shown until the user asks for it.
GridColumn hidden(const QString& field, const QString& caption, int width);
/// Never shown nor offered.
GridColumn internal(const QString& field, const QString& caption = {});
/// The column in a list that is edited in place: what is typed becomes Turkish capitals.
GridColumn edited(GridColumn column);

}  // namespace CardColumns
