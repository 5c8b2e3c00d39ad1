#include "toolkit/grid/grid_accessible.h"

#include "base/data/value.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

GridModel* modelOf(const GridView* view) { return static_cast<GridModel*>(view->model()); }

/// One place of a grid. It is a place and not a row: when rows change it tells what stands there now. Line -1 is the
/// captions, column -1 the number of the line.
class GridCellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface, public QAccessibleActionInterface {
 public:
  GridCellAccessible(GridView* view, int line, int column) : view_(view), line_(line), column_(column) {}

  bool isValid() const override {
    return view_ != nullptr && line_ < modelOf(view_)->rowCount() && column_ < modelOf(view_)->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return isValid() ? view_->window()->windowHandle() : nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override { return isValid() ? table() : nullptr; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    const GridModel* model = modelOf(view_);
    const QString caption = column_ < 0 ? QString() : model->columns()[size_t(column_)].caption.trimmed();
    if (kind == QAccessible::Description) return line_ < 0 ? QString() : caption;
    if (kind != QAccessible::Name && kind != QAccessible::Value) return {};
    if (line_ < 0) return caption;
    if (column_ < 0) return QString::number(line_ + 1);
    const GridRow row = model->row(line_);
    if (row.kind == GridRowKind::Group) return model->groupText(model->rows().group(row.index));
    return index().data(Qt::AccessibleTextRole).toString();
  }

  QRect rect() const override {
    if (!isValid() || line_ < 0 || column_ < 0) return {};
    const QRect place = view_->visualRect(index());
    return {view_->viewport()->mapToGlobal(place.topLeft()), place.size()};
  }

  QAccessible::Role role() const override {
    if (line_ < 0) return QAccessible::ColumnHeader;
    return column_ < 0 ? QAccessible::RowHeader : QAccessible::Cell;
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.invisible = column_ >= 0 && view_->isColumnHidden(column_);
    if (line_ < 0 || column_ < 0) return state;
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected();
    state.focused = view_->hasFocus() && view_->currentIndex() == index();
    state.offscreen = !view_->viewport()->rect().intersects(view_->visualRect(index()));
    state.editable = modelOf(view_)->flags(index()).testFlag(Qt::ItemIsEditable);
    const GridRow row = modelOf(view_)->row(line_);
    if (row.kind == GridRowKind::Group) {
      state.expandable = true;
      state.expanded = modelOf(view_)->rows().group(row.index).expanded;
      state.collapsed = !state.expanded;
    }
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  bool isSelected() const override { return isValid() && line_ >= 0 && view_->selectionModel()->isRowSelected(line_, {}); }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  int columnIndex() const override { return isValid() ? column_ : -1; }
  int rowIndex() const override { return isValid() ? line_ : -1; }
  QAccessibleInterface* table() const override { return QAccessible::queryAccessibleInterface(view_); }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return headers(0, column_ + 1); }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return headers(line_ + 1, 0); }

  QStringList actionNames() const override { return isValid() && line_ >= 0 ? QStringList{pressAction()} : QStringList(); }
  void doAction(const QString& action) override {
    if (!isValid() || line_ < 0 || action != pressAction()) return;
    view_->setCurrentLine(line_);
    const GridRow row = modelOf(view_)->row(line_);
    if (row.kind == GridRowKind::Group)
      Q_EMIT view_->groupToggled(row.index);
    else if (modelOf(view_)->isEditable() && column_ >= 0)
      view_->edit(index());
    else if (row.kind == GridRowKind::Data)
      Q_EMIT view_->lineChosen(line_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QModelIndex index() const { return modelOf(view_)->index(line_, column_); }
  QList<QAccessibleInterface*> headers(int row, int column) const {
    if (!isValid()) return {};
    return {table()->child(row * (modelOf(view_)->columnCount() + 1) + column)};
  }

  QPointer<GridView> view_;
  int line_;
  int column_;
};

/// The grid as a table. Its children are counted as QTableView counts them in the events that it sends: a row of captions
/// and a column of line numbers stand before the cells; the header with its search cells comes last.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit GridAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::Table), view_(view) {}
  ~GridAccessible() override { forgetCells(); }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  int childCount() const override { return cells() + 1; }
  QAccessibleInterface* child(int number) const override {
    if (number < 0 || number > cells()) return nullptr;
    if (number == cells()) return QAccessible::queryAccessibleInterface(view_->header());
    const auto known = ids_.constFind(number);
    if (known != ids_.constEnd()) return QAccessible::accessibleInterface(*known);
    const int line = number / perLine() - 1;
    const int column = number % perLine() - 1;
    auto* cell = new GridCellAccessible(view_, line, column);
    ids_.insert(number, QAccessible::registerAccessibleInterface(cell));
    return cell;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child == nullptr) return -1;
    if (child->object() == view_->header()) return cells();
    auto* cell = const_cast<QAccessibleInterface*>(child)->tableCellInterface();
    return cell == nullptr ? -1 : (cell->rowIndex() + 1) * perLine() + cell->columnIndex() + 1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QModelIndex index = view_->indexAt(view_->viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    const QModelIndex index = view_->currentIndex();
    return index.isValid() && view_->hasFocus() ? cellAt(index.row(), index.column()) : nullptr;
  }

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override {
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
    return child((row + 1) * perLine() + column + 1);
  }
  int columnCount() const override { return modelOf(view_)->columnCount(); }
  int rowCount() const override { return modelOf(view_)->rowCount(); }
  QString columnDescription(int column) const override { return modelOf(view_)->columns()[size_t(column)].caption.trimmed(); }
  QString rowDescription(int row) const override { return QString::number(row + 1); }
  int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override { return int(view_->selectedLines().size()); }
  QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> selected;
    for (const int line : view_->selectedLines())
      for (const int column : view_->shownColumns()) selected += cellAt(line, column);
    return selected;
  }
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override {
    const std::vector<int> lines = view_->selectedLines();
    return {lines.begin(), lines.end()};
  }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override { return view_->selectionModel()->isRowSelected(row, {}); }
  bool selectRow(int row) override {
    if (row < 0 || row >= rowCount()) return false;
    view_->setCurrentLine(row);
    return view_->currentLine() == row;
  }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int row) override {
    view_->selectionModel()->select(view_->model()->index(row, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    return true;
  }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override {
    if (event->modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset) forgetCells();
  }

 private:
  int perLine() const { return columnCount() + 1; }
  int cells() const { return (rowCount() + 1) * perLine(); }
  void forgetCells() {
    for (const QAccessible::Id id : std::as_const(ids_)) QAccessible::deleteAccessibleInterface(id);
    ids_.clear();
  }

  GridView* view_;
  mutable QHash<int, QAccessible::Id> ids_;
};

QAccessibleInterface* gridInterface(const QString& className, QObject* object) {
  if (className != u"GridView") return nullptr;
  auto* view = qobject_cast<GridView*>(object);
  return view == nullptr ? nullptr : new GridAccessible(view);
}

}  // namespace

void installGridAccessible() {
  static const bool installed = [] {
    QAccessible::installFactory(gridInterface);
    return true;
  }();
  Q_UNUSED(installed)
}
