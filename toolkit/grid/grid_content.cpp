#include "toolkit/grid/grid_content.h"

#include "base/data/value.h"
#include "toolkit/grid/grid_model.h"

GridContent::GridContent(const GridModel& model, std::vector<int> columns, const std::function<int(int)>& widthOf, bool expanded)
    : hold_(model.query()), model_(model), columns_(std::move(columns)), rows_(model.rows()), skipped_(rows_.hasNewItemRow() ? 1 : 0) {
  for (const int column : columns_) widths_.push_back(widthOf(column));
  if (expanded && rows_.isGrouped()) rows_.setAllExpanded(true);
  rows_.layOut();
}

ContentColumn GridContent::column(int column) const {
  const int number = columns_[size_t(column)];
  const GridColumn& about = model_.columns()[size_t(number)];
  return {about.caption.trimmed(), widths_[size_t(column)], model_.isNumber(number), about.displayFormat};
}

int GridContent::rowCount() const { return rows_.count() - skipped_ + (model_.hasFooter() ? 1 : 0); }

ContentRowKind GridContent::rowKind(int row) const {
  if (row == rows_.count() - skipped_) return ContentRowKind::Footer;
  switch (line(row).kind) {
    case GridRowKind::Group:
      return ContentRowKind::Group;
    case GridRowKind::GroupFooter:
      return ContentRowKind::GroupFooter;
    default:
      return ContentRowKind::Data;
  }
}

int GridContent::level(int row) const { return line(row).level; }

QString GridContent::groupText(int row) const {
  // Groups are counted anew when closed ones were opened, so the text comes from this object's own.
  return model_.groupText(rows_.group(line(row).index));
}

QString GridContent::text(int row, int column) const {
  const int number = columns_[size_t(column)];
  switch (rowKind(row)) {
    case ContentRowKind::Footer:
      return model_.footerText(number);
    case ContentRowKind::GroupFooter:
      return model_.groupFooterText(rows_.group(line(row).index), number);
    case ContentRowKind::Group:
      return {};
    default:
      return model_.shownAt(line(row).index, number);
  }
}

Value GridContent::value(int row, int column) const {
  const int number = columns_[size_t(column)];
  switch (rowKind(row)) {
    case ContentRowKind::Footer:
      return model_.footerValue(number);
    case ContentRowKind::GroupFooter:
      return model_.groupFooterValue(rows_.group(line(row).index), number);
    case ContentRowKind::Group:
      return {};
    default:
      break;
  }
  const GridColumn& about = model_.columns()[size_t(number)];
  const Value stored = model_.valueAt(line(row).index, number);
  if (!about.lookUp && about.values.empty()) return stored;
  return stored.isNull() ? Value() : Value(about.shown(stored));
}

QColor GridContent::textColor(int row) const {
  return rowKind(row) == ContentRowKind::Data ? model_.rowColor(line(row).index) : QColor();
}
