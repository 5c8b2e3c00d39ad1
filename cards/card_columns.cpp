#include "cards/card_columns.h"

GridColumn CardColumns::shown(const QString& field, const QString& caption, int width) {
  GridColumn column;
  column.field = field;
  column.caption = caption;
  column.width = width;
  return column;
}

GridColumn CardColumns::stretching(const QString& field, const QString& caption, int width) {
  GridColumn column = shown(field, caption, width);
  column.stretches = true;
  return column;
}

GridColumn CardColumns::hidden(const QString& field, const QString& caption, int width) {
  GridColumn column = shown(field, caption, width);
  column.visible = false;
  return column;
}

GridColumn CardColumns::internal(const QString& field, const QString& caption) {
  GridColumn column = hidden(field, caption, 60);
  column.offered = false;
  column.readOnly = true;
  return column;
}

GridColumn CardColumns::edited(GridColumn column) {
  column.upperCase = true;
  return column;
}
