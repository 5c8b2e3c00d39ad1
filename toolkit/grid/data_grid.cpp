#include "toolkit/grid/data_grid.h"

#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/grid/filter_box.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_content.h"
#include "toolkit/grid/grid_footer.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/grid_layout.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/grid/group_area.h"
#include "toolkit/shell/key_state_panel.h"

#include <QBoxLayout>
#include <QIcon>
#include <QSet>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

DataGrid::DataGrid(TMyQuery& query, std::vector<GridColumn> columns, const QString& caption, QWidget* parent)
    : QWidget(parent), model_(new GridModel(query, std::move(columns), this)), view_(new GridView(model_, this)),
      filterRow_(view_->header()->filterRow()) {
  build(caption);
  buildCommands();
  rowsRead();
}

DataGrid::~DataGrid() = default;

TMyQuery& DataGrid::query() const { return model_->query(); }

void DataGrid::build(const QString& caption) {
  setAccessibleName(caption);
  view_->setAccessibleName(caption);
  setFocusProxy(view_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  groupArea_ = new GroupArea(this);
  groupArea_->hide();
  column->addWidget(groupArea_);
  column->addWidget(view_, 1);
  if (model_->hasFooter()) {
    footer_ = new GridFooter(model_, view_, this);
    column->addWidget(footer_);
  }
  filterBox_ = new FilterBox(this);
  filterBox_->hide();
  column->addWidget(filterBox_);

  view_->header()->setGroupTarget(groupArea_);
  connectGuarded(view_->header(), &GridHeader::draggedOverTarget, this, [this](bool over) { groupArea_->setTargeted(over); });
  connectGuarded(view_->header(), &GridHeader::sortAsked, this, [this](int asked, Qt::KeyboardModifiers modifiers) {
    sortBy(columns()[size_t(asked)].field, modifiers);
  });
  connectGuarded(view_->header(), &GridHeader::groupAsked, this, [this](int asked) {
    const QString& field = columns()[size_t(asked)].field;
    if (!grouping().contains(field)) toggleGroup(field);
  });
  connectGuarded(groupArea_, &GroupArea::removed, this, [this](const QString& field) { toggleGroup(field); });
  connectGuarded(groupArea_, &GroupArea::turned, this, [this](const QString& field) { sortBy(field, {}); });
  connectGuarded(filterRow_, &FilterRow::changed, this, [this] {
    filterEnabled_ = true;
    applyFilter();
  });
  connectGuarded(filterRow_, &FilterRow::entered, view_, [this](int entered) { view_->bringIntoView(entered); });
  connectGuarded(filterRow_, &FilterRow::left, this, [this](int left) {
    view_->setFocus();
    const int line = std::max(0, view_->currentLine());
    view_->setCurrentIndex(model_->index(line, left));
  });
  connectGuarded(filterBox_, &FilterBox::switched, this, [this](bool on) { setFilterEnabled(on); });
  connectGuarded(filterBox_, &FilterBox::cleared, this, [this] { clearFilter(); });
  connectGuarded(view_, &GridView::lineChosen, this, [this](int line) { Q_EMIT rowChosen(model_->row(line).index); });
  connectGuarded(view_, &GridView::currentLineChanged, this, [this](int line) { cursorMoved(line); });
  connectGuarded(view_, &GridView::groupToggled, this, [this](int group) {
    const int line = view_->currentLine();
    model_->setExpanded(group, !model_->rows().group(group).expanded);
    view_->setCurrentLine(line);
  });
  connectGuarded(view_, &GridView::allGroupsToggled, this, [this](bool expanded) { setAllExpanded(expanded); });
  connectGuarded(view_, &GridView::deleteAsked, this, [this] { deleteSelectedRows(); });
  connectGuarded(view_, &GridView::appendAsked, this, [this] { addRow(); });
  connectGuarded(model_, &GridModel::rejected, this, [this](const QString& message) { Q_EMIT rejected(message); });
  connectGuarded(model_, &QAbstractItemModel::modelReset, this, [this] { rowsRead(); });
  connectGuarded(model_, &QAbstractItemModel::rowsRemoved, this, [this] {
    if (!hasSelectedRow() && view_->currentLine() >= 0) view_->setCurrentLine(view_->currentLine());
  });
  connectGuarded(model_, &GridModel::summariesChanged, this, [this] { showFilter(); });
}

void DataGrid::rowsRead() {
  filterRow_->arrange();
  const int row = query().Active() ? query().RecNo() : -1;
  if (const int line = model_->rows().lineOf(row); line >= 0) view_->setCurrentLine(line);
  showFilter();
}

void DataGrid::showFilter() {
  if (filterRow_->isShown()) filterBox_->show(inForceText(), filterEnabled_, query().Active() ? query().RecordCount() : 0);
}

void DataGrid::cursorMoved(int line) {
  const GridRow row = model_->row(line);
  const int queryRow = row.kind == GridRowKind::Data ? row.index : -1;
  if (queryRow >= 0 && query().state() == QueryState::Browse && query().RecNo() != queryRow) query().setRecNo(queryRow);
  Q_EMIT currentRowChanged(queryRow);
}

const std::vector<GridColumn>& DataGrid::columns() const { return model_->columns(); }

void DataGrid::setMultiSelect(bool on) {
  view_->setSelectionMode(on ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
}

void DataGrid::setFilterRow(bool on) {
  filterBox_->setVisible(on);
  view_->header()->setFilterRowShown(on);
  rowsRead();
}

void DataGrid::setFilterBoxOnTop() {
  auto* column = static_cast<QBoxLayout*>(layout());
  column->removeWidget(filterBox_);
  column->insertWidget(column->indexOf(view_), filterBox_);
}

void DataGrid::addRowCommand(QAction* command) {
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  view_->addAction(command);
}

void DataGrid::setFilterUpperCase(bool on) { filterRow_->setUpperCase(on); }

void DataGrid::setGroupArea(bool on) { groupArea_->setVisible(on); }

void DataGrid::setEmptyText(const QString& text) { view_->setEmptyText(text); }

void DataGrid::setRowColor(std::function<QColor(int)> color) { model_->setRowColor(std::move(color)); }

void DataGrid::setSortHandler(std::function<void(const std::vector<GridSort>&)> handler) { sortHandler_ = std::move(handler); }

void DataGrid::setFilterHandler(std::function<bool(const std::optional<FilterExpression>&)> handler) { filterHandler_ = std::move(handler); }

void DataGrid::setEditing(GridEditing editing) {
  editing_ = editing;
  setProperty(insertKeyTaken, editing != GridEditing::None);
  model_->setEditable(editing != GridEditing::None, editing == GridEditing::NewItemRow);
  view_->setEditTriggers(editing == GridEditing::None ? QAbstractItemView::NoEditTriggers : QAbstractItemView::AnyKeyPressed);
  if (navigator_ == nullptr && editing != GridEditing::None) buildNavigator();
}

int DataGrid::currentRow() const {
  const GridRow row = model_->row(view_->currentLine());
  return view_->currentLine() >= 0 && row.kind == GridRowKind::Data ? row.index : -1;
}

void DataGrid::setCurrentRow(int row) {
  if (row < 0 || row >= query().RecordCount()) return;
  model_->openGroupsOf(row);
  if (const int line = model_->rows().lineOf(row); line >= 0) view_->setCurrentLine(line);
}

void DataGrid::goToFirstRow() {
  for (int line = 0; line < model_->rowCount(); ++line)
    if (model_->row(line).kind != GridRowKind::NewItem) return view_->setCurrentLine(line);
}

std::vector<int> DataGrid::selectedRows() const {
  std::vector<int> rows;
  for (const int line : view_->selectedLines())
    if (const GridRow row = model_->row(line); row.kind == GridRowKind::Data) rows.push_back(row.index);
  return rows;
}

bool DataGrid::hasSelectedRow() const {
  for (const QItemSelectionRange& range : view_->selectionModel()->selection())
    for (int line = range.top(); line <= range.bottom(); ++line)
      if (model_->row(line).kind == GridRowKind::Data) return true;
  return false;
}

void DataGrid::clearSelection() { view_->clearSelection(); }

/// A row's key as bytes; empty when the query has no key.
QByteArray DataGrid::keyOf(int row) const {
  QByteArray key;
  for (int field = 0; field < query().fieldCount(); ++field)
    if (query().fieldInfo(field).isKey) key += query().rawCell(row, field).value_or(QByteArrayView()).toByteArray() + '\n';
  return key;
}

void DataGrid::keepRecords(const std::function<void()>& read) {
  const int before = query().Active() ? currentRow() : -1;
  const QByteArray current = before < 0 ? QByteArray() : keyOf(before);
  if (current.isEmpty()) return read();
  QSet<QByteArray> selected;
  for (const int row : selectedRows()) selected.insert(keyOf(row));
  read();
  if (!query().Active()) return;
  int row = 0;
  while (row < query().RecordCount() && keyOf(row) != current) ++row;
  setCurrentRow(row);
  view_->selectOnly([&](const GridRow& line) { return line.kind == GridRowKind::Data && selected.contains(keyOf(line.index)); });
}

void DataGrid::deleteSelectedRows() {
  if (model_->isEditingRow() && query().state() == QueryState::Insert) return model_->cancelRow();
  const std::vector<int> lines = view_->selectedLines();
  std::vector<int> rows = selectedRows();
  std::sort(rows.rbegin(), rows.rend());  // from the end, so that the numbers of those to come stay
  for (const int row : rows) model_->deleteRow(row);
  if (query().RecNo() < 0) return;
  if (model_->rows().isGrouped())
    setCurrentRow(query().RecNo());
  else if (!lines.empty())
    view_->setCurrentLine(std::min(lines.front(), model_->rowCount() - 1));
}

bool DataGrid::postEdits() { return view_->mayLeaveRow(-1); }

std::optional<FilterExpression> DataGrid::filter() const {
  std::vector<FilterExpression> parts;
  for (int column = 0; column < model_->columnCount(); ++column) {
    filterRow_->setWrong(column, {});
    try {
      if (auto part = GridConditions::expression(query(), columns()[size_t(column)], filterRow_->condition(column))) parts.push_back(*part);
    } catch (const Exception& error) {
      filterRow_->setWrong(column, error.message());
    }
  }
  if (ownFilter_) parts.push_back(*ownFilter_);
  if (parts.empty()) return std::nullopt;
  return parts.size() == 1 ? parts.front() : FilterExpression::all(std::move(parts));
}

void DataGrid::setColumnFilter(const QString& field, FilterOperator comparison, const QString& text, const QString& upper) {
  const int column = model_->columnOf(field);
  if (column < 0) return;
  filterRow_->setCondition(column, {comparison, upper.isEmpty() ? text : text + u".."_s + upper});
  filterEnabled_ = true;
  applyFilter();
}

void DataGrid::setFilter(std::optional<FilterExpression> expression) {
  ownFilter_ = std::move(expression);
  filterEnabled_ = true;
  applyFilter();
}

void DataGrid::clearFilter() {
  filterRow_->clear();
  ownFilter_.reset();
  filterEnabled_ = true;
  applyFilter();
}

void DataGrid::setFilterEnabled(bool on) {
  filterEnabled_ = on;
  applyFilter();
}

QString DataGrid::inForceText() const {
  if (!inForce_) return {};
  return inForce_->asText([this](const QString& field) {
    const int column = model_->columnOf(field);
    return column < 0 ? field : columns()[size_t(column)].caption;
  });
}

void DataGrid::applyFilter() {
  if (!postEdits()) return;
  inForce_ = query().Active() ? filter() : std::nullopt;
  const std::optional<FilterExpression> wanted = filterEnabled_ ? inForce_ : std::nullopt;
  if (!filterHandler_ || !filterHandler_(wanted)) query().setFilter(wanted);
  showFilter();
}

void DataGrid::setOrder(std::vector<GridSort> order) {
  order_ = std::move(order);
  applyOrder();
}

void DataGrid::applyOrder() {
  if (!postEdits()) return;
  view_->header()->setOrder(order_);
  if (sortHandler_)
    sortHandler_(order_);
  else
    model_->setOrder(order_);
}

void DataGrid::sortBy(const QString& field, Qt::KeyboardModifiers modifiers) {
  std::vector<GridSort> levels = model_->rows().grouping();
  for (GridSort& level : levels) {
    if (level.field != field) continue;
    level.descending = !level.descending;
    return applyGrouping(std::move(levels));
  }
  const auto key = std::find_if(order_.begin(), order_.end(), [&](const GridSort& sort) { return sort.field == field; });
  const bool known = key != order_.end();
  if (modifiers & Qt::ControlModifier) {
    if (!known) return;
    order_.erase(key);
  } else if (modifiers & Qt::ShiftModifier) {
    if (known)
      key->descending = !key->descending;
    else
      order_.push_back({field, false});
  } else {
    order_ = {{field, known && order_.size() == 1 && !key->descending}};
  }
  applyOrder();
}

std::vector<GridSort> DataGrid::order() const { return order_; }

QStringList DataGrid::grouping() const {
  QStringList fields;
  for (const GridSort& level : model_->rows().grouping()) fields += level.field;
  return fields;
}

void DataGrid::setGrouping(const QStringList& fields) {
  std::vector<GridSort> levels;
  for (const QString& field : fields)
    if (model_->columnOf(field) >= 0) levels.push_back({field, false});
  applyGrouping(std::move(levels));
}

void DataGrid::applyGrouping(std::vector<GridSort> levels) {
  if (!postEdits()) return;
  model_->setGrouping(std::move(levels), groupsAsText_);
  showGrouping();
}

void DataGrid::showGrouping() {
  std::vector<GroupArea::Level> levels;
  for (const GridSort& level : model_->rows().grouping())
    levels.push_back({level.field, columns()[size_t(model_->columnOf(level.field))].caption.trimmed(), level.descending});
  groupArea_->setLevels(levels);
  if (view_->currentLine() < 0) goToFirstRow();
}

void DataGrid::toggleGroup(const QString& field) {
  std::vector<GridSort> levels = model_->rows().grouping();
  if (std::erase_if(levels, [&](const GridSort& level) { return level.field == field; }) == 0) levels.push_back({field, false});
  applyGrouping(std::move(levels));
}

void DataGrid::setAllExpanded(bool expanded) {
  model_->setAllExpanded(expanded);
  if (view_->currentLine() < 0) goToFirstRow();
}

QString DataGrid::currentField() const {
  return columns().empty() ? QString() : columns()[size_t(view_->currentColumn())].field;
}

bool DataGrid::isColumnVisible(const QString& field) const {
  const int column = model_->columnOf(field);
  return column >= 0 && !view_->isColumnHidden(column);
}

void DataGrid::setColumnVisible(const QString& field, bool visible) {
  const int column = model_->columnOf(field);
  if (column < 0 || !columns()[size_t(column)].offered || visible == isColumnVisible(field)) return;
  if (!visible && view_->shownColumns().size() == 1) return;
  if (!visible) widths_.insert(column, view_->columnWidth(column));
  view_->setColumnHidden(column, !visible);
  filterRow_->arrange();
}

void DataGrid::storeLayout(const QString& file) const {
  GridLayout layout;
  for (int visual = 0; visual < model_->columnCount(); ++visual) {
    const int column = view_->header()->logicalIndex(visual);
    const GridColumn& about = columns()[size_t(column)];
    if (!about.offered) continue;
    const bool visible = !view_->isColumnHidden(column);
    layout.columns.push_back({about.field, visible ? view_->columnWidth(column) : widths_.value(column, about.width), visible});
  }
  layout.groups = model_->rows().grouping();
  layout.order = order_;
  GridLayouts::write(layout, file);
}

bool DataGrid::restoreLayout(const QString& file) {
  const std::optional<GridLayout> layout = GridLayouts::read(file);
  if (!layout) return false;
  const auto known = [this](const QString& field) {
    const int column = model_->columnOf(field);
    return column >= 0 && columns()[size_t(column)].offered;
  };
  const bool oneShown = std::any_of(layout->columns.begin(), layout->columns.end(), [&](const GridLayout::Column& column) {
    return column.visible && known(column.field);
  });
  if (!oneShown) return false;
  int place = 0;
  for (const GridLayout::Column& each : layout->columns) {
    if (!known(each.field)) continue;
    const int column = model_->columnOf(each.field);
    view_->header()->moveSection(view_->header()->visualIndex(column), place++);
    view_->setColumnHidden(column, !each.visible);
    if (each.visible && !columns()[size_t(column)].stretches) view_->setColumnWidth(column, each.width);
    widths_.insert(column, each.width);
  }
  std::vector<GridSort> levels = layout->groups;
  std::erase_if(levels, [&](const GridSort& level) { return !known(level.field); });
  std::vector<GridSort> order = layout->order;
  std::erase_if(order, [&](const GridSort& sort) { return !known(sort.field); });
  if (levels != model_->rows().grouping()) applyGrouping(std::move(levels));
  if (order != order_) setOrder(std::move(order));
  filterRow_->arrange();
  return true;
}

void DataGrid::resetLayout() {
  for (int column = 0; column < model_->columnCount(); ++column) {
    const GridColumn& about = columns()[size_t(column)];
    view_->header()->moveSection(view_->header()->visualIndex(column), column);
    view_->setColumnHidden(column, !about.visible || !about.offered);
    if (about.visible && about.offered && !about.stretches) view_->setColumnWidth(column, about.width);
  }
  widths_.clear();
  if (!grouping().isEmpty()) clearGrouping();
  if (!order_.empty()) clearSorting();
  filterRow_->arrange();
}

std::unique_ptr<TableContent> DataGrid::content(bool expanded) const {
  return std::make_unique<GridContent>(*model_, view_->shownColumns(), [this](int column) { return view_->columnWidth(column); }, expanded);
}
