#include "toolkit/grid/grid_view.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/turkish_text.h"
#include "toolkit/edits/edit_frame.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_accessible.h"
#include "toolkit/grid/grid_delegate.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/grid_model.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowPadding = 8;
constexpr int indent = 18;  ///< of a group within another
constexpr int signSize = 9;

/// The grid's selection: the cursor leaves a row in edit only when that was written.
class GridSelection : public QItemSelectionModel {
 public:
  GridSelection(QAbstractItemModel* model, GridView* view) : QItemSelectionModel(model, view), view_(view) {}

  void setCurrentIndex(const QModelIndex& index, QItemSelectionModel::SelectionFlags command) override {
    if (index.isValid() && !view_->mayLeaveRow(index.row())) return;
    QItemSelectionModel::setCurrentIndex(index, command);
  }

 private:
  GridView* view_;
};

/// A field of a row that a spreadsheet reads as one cell.
QString quotedForSheet(QString text) {
  if (!text.contains(u'\t') && !text.contains(u'\n') && !text.contains(u'"')) return text;
  return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

}  // namespace

GridView::GridView(GridModel* model, QWidget* parent) : QTableView(parent), model_(model), header_(new GridHeader(model, this)) {
  installGridAccessible();
  setHorizontalHeader(header_);
  setModel(model);
  setSelectionModel(new GridSelection(model, this));
  setItemDelegate(new GridDelegate(model, this));
  connectGuarded(model, &GridModel::rejected, this, [this](const QString& message) { refusal_ = message; });
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setGridStyle(Qt::SolidLine);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
  for (int column = 0; column < model->columnCount(); ++column) {
    const GridColumn& about = model->columns()[size_t(column)];
    setColumnWidth(column, about.width);
    setColumnHidden(column, !about.visible || !about.offered);
    if (about.stretches) header_->setSectionResizeMode(column, QHeaderView::Stretch);
  }
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  guarded(this, [&] { keepStretchedReadable(); });
}

/// A column that takes the room that is left keeps its caption and most of its own width where there is too little; the
/// grid scrolls then.
void GridView::keepStretchedReadable() {
  for (int column = 0; column < model_->columnCount(); ++column) {
    const GridColumn& about = model_->columns()[size_t(column)];
    if (!about.stretches || isColumnHidden(column)) continue;
    const int others = header_->length() - header_->sectionSize(column);
    const int least = std::max(about.width * 2 / 3, header_->sectionSizeHint(column));
    const bool hasRoom = viewport()->width() - others >= least;
    header_->setSectionResizeMode(column, hasRoom ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (!hasRoom) setColumnWidth(column, least);
  }
}

void GridView::setEmptyText(const QString& text) {
  emptyText_ = text;
  viewport()->update();
}

std::vector<int> GridView::shownColumns() const {
  std::vector<int> columns;
  for (int visual = 0; visual < header_->count(); ++visual)
    if (const int column = header_->logicalIndex(visual); !isColumnHidden(column)) columns.push_back(column);
  return columns;
}

int GridView::currentColumn() const {
  const int column = currentIndex().isValid() ? currentIndex().column() : lastColumn_;
  if (column >= 0 && !isColumnHidden(column)) return column;
  const auto columns = shownColumns();
  return columns.empty() ? 0 : columns.front();
}

void GridView::setCurrentLine(int line) {
  const QModelIndex index = model_->index(line, currentColumn());
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

void GridView::selectOnly(const std::function<bool(const GridRow& line)>& isWanted) {
  QItemSelection lines;
  const int last = model_->columnCount() - 1;
  for (int line = 0; line < model_->rowCount(); ++line) {
    if (!isWanted(model_->row(line))) continue;
    int end = line;
    while (end + 1 < model_->rowCount() && isWanted(model_->row(end + 1))) ++end;
    lines.append(QItemSelectionRange(model_->index(line, 0), model_->index(end, last)));
    line = end;
  }
  selectionModel()->select(lines, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> GridView::selectedLines() const {
  std::vector<int> lines;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int line = range.top(); line <= range.bottom(); ++line) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  return lines;
}

QString GridView::selectionText() const {
  const std::vector<int> columns = shownColumns();
  QStringList rows;
  for (const int line : selectedLines()) {
    if (model_->row(line).kind != GridRowKind::Data) continue;
    QStringList cells;
    for (const int column : columns) cells += quotedForSheet(model_->index(line, column).data(Qt::DisplayRole).toString());
    rows += cells.join(u'\t');
  }
  return rows.join(u'\n');
}

bool GridView::mayLeaveRow(int line) {
  const int editing = model_->editingLine();
  if (editing < 0 || line == editing) return true;
  bool written = false;
  guarded(this, [&] {
    try {
      model_->postRow();
      written = true;
    } catch (const EAbort&) {
      // Whoever refused the row has told the user.
    }
  });
  return written;
}

void GridView::reset() {
  refusal_.clear();
  searched_.clear();
  QTableView::reset();
}

void GridView::bringIntoView(int column) {
  const int left = header_->sectionViewportPosition(column);
  const int beyond = left + header_->sectionSize(column) - viewport()->width();
  QScrollBar* bar = horizontalScrollBar();
  if (left < 0)
    bar->setValue(bar->value() + left);
  else if (beyond > 0)
    bar->setValue(bar->value() + std::min(beyond, left));
}

int GridView::fittingWidth(int column) const {
  const QFontMetrics metrics = fontMetrics();
  int width = header_->sectionSizeHint(column) + 14;
  const int first = std::max(0, rowAt(0));
  const int last = std::min(model_->rowCount(), first + viewport()->height() / std::max(1, rowHeight(0)) + 1);
  for (int line = first; line < last; ++line)
    if (model_->row(line).kind != GridRowKind::Group)
      width = std::max(width, metrics.horizontalAdvance(model_->index(line, column).data(Qt::DisplayRole).toString()) +
                                  2 * GridDelegate::margin + 4);
  return std::min(width, 600);
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  guarded(this, [&] {
    QPainter painter(viewport());
    const bool editsNewItem = state() == EditingState && currentIndex().row() == 0;
    if (model_->rows().hasNewItemRow() && model_->rows().hiddenRow() < 0 && !editsNewItem) {
      const QRect row(0, rowViewportPosition(0), viewport()->width(), rowHeight(0));
      const bool current = currentIndex().row() == 0 && selectionModel()->isSelected(currentIndex());
      painter.setPen(palette().color(current ? QPalette::Text : QPalette::PlaceholderText));
      painter.drawText(row.adjusted(6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter, GridModel::newItemHint());
    }
    if (model_->rowCount() == (model_->rows().hasNewItemRow() ? 1 : 0)) {
      painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
      painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText_);
    }
    if (model_->rows().isGrouped()) paintGroups(painter);
  });
}

void GridView::paintGroups(QPainter& painter) {
  const int first = rowAt(0);
  if (first < 0) return;
  int last = rowAt(viewport()->height() - 1);
  if (last < 0) last = model_->rowCount() - 1;
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  for (int line = first; line <= last; ++line) {
    const GridRow row = model_->row(line);
    if (row.kind != GridRowKind::Group) continue;
    const QRect band(0, rowViewportPosition(line), viewport()->width(), rowHeight(line) - 1);
    const bool selected = selectionModel()->isRowSelected(line, {});
    painter.fillRect(band, palette().color(selected ? QPalette::Highlight : QPalette::Midlight));
    const QColor ink = palette().color(selected ? QPalette::HighlightedText : QPalette::Text);
    const int left = 6 + row.level * indent;
    const QRect sign(left, band.center().y() - signSize / 2, signSize, signSize);
    painter.setPen(ink);
    painter.drawRect(sign.adjusted(0, 0, -1, -1));
    painter.drawLine(sign.left() + 2, sign.center().y(), sign.right() - 2, sign.center().y());
    if (!model_->rows().group(row.index).expanded)
      painter.drawLine(sign.center().x(), sign.top() + 2, sign.center().x(), sign.bottom() - 2);
    painter.drawText(band.adjusted(left + signSize + 6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter, model_->groupText(model_->rows().group(row.index)));
  }
}

void GridView::mousePressEvent(QMouseEvent* event) {
  bool used = false;
  guarded(this, [&] {
    endSearch();
    const QModelIndex index = indexAt(event->position().toPoint());
    used = index.isValid() && !mayLeaveRow(index.row());
    if (!index.isValid() || used || event->button() != Qt::LeftButton) return;
    const GridRow row = model_->row(index.row());
    if (row.kind != GridRowKind::Group) return;
    const int left = 6 + row.level * indent;
    if (event->position().x() < left - 3 || event->position().x() > left + signSize + 4) return;
    setCurrentLine(index.row());
    Q_EMIT groupToggled(row.index);
    used = true;
  });
  if (used) return;
  QTableView::mousePressEvent(event);
  guarded(this, [&] {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && model_->row(index.row()).kind == GridRowKind::NewItem && state() != EditingState) edit(index);
  });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  guarded(this, [&] {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || event->button() != Qt::LeftButton) return;
    const GridRow row = model_->row(index.row());
    if (row.kind == GridRowKind::Group)
      Q_EMIT groupToggled(row.index);
    else if (model_->isEditable())
      edit(index);
    else if (row.kind == GridRowKind::Data)
      Q_EMIT lineChosen(index.row());
  });
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  guarded(this, [&] {
    if (!moving_) endSearch();
    if (current.isValid()) lastColumn_ = current.column();
    if (current.row() != previous.row()) Q_EMIT currentLineChanged(current.row());
  });
}

void GridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (dx != 0) header_->filterRow()->arrange();
  if (model_->rows().isGrouped() || model_->rowCount() == 0) viewport()->update();
}

void GridView::updateGeometries() {
  QTableView::updateGeometries();
  verticalScrollBar()->setSingleStep(verticalScrollMode() == ScrollPerItem ? 1 : rowHeight(0));
}

QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const QModelIndex target = QTableView::moveCursor(action, modifiers);
  // Home and End go to the first and the last row when there is nothing to walk within a row.
  if ((action == MoveHome || action == MoveEnd) && !(modifiers & Qt::ControlModifier) && !model_->isEditable())
    return model_->index(action == MoveHome ? 0 : model_->rowCount() - 1, currentColumn());
  return target;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  guarded(this, [&] { used = editingKey(*event) || groupKey(*event) || searchKey(*event); });
  if (!used) QTableView::keyPressEvent(event);
}

bool GridView::editingKey(const QKeyEvent& press) {
  const bool enter = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
  const QModelIndex index = currentIndex();
  if (enter && state() == EditingState) return false;
  if (!model_->isEditable()) {
    if (!enter || !index.isValid() || model_->row(index.row()).kind != GridRowKind::Data) return false;
    Q_EMIT lineChosen(index.row());
    return true;
  }
  if (press.key() == Qt::Key_Insert) {
    Q_EMIT appendAsked();
  } else if (press.key() == Qt::Key_Delete && press.modifiers() & Qt::ControlModifier) {
    Q_EMIT deleteAsked();
  } else if (press.key() == Qt::Key_Escape && model_->isEditingRow() && state() != EditingState) {
    model_->cancelRow();
  } else if (enter || press.key() == Qt::Key_F2) {
    if (index.isValid()) edit(index);
  } else if (press.key() == Qt::Key_Down && state() != EditingState && index.row() == model_->rowCount() - 1 && model_->isEditingRow()) {
    mayLeaveRow(-1);  // there is no row below: what was typed is written where it stands
  } else {
    return false;
  }
  return true;
}

bool GridView::groupKey(const QKeyEvent& press) {
  if (!model_->rows().isGrouped() || !currentIndex().isValid()) return false;
  const bool plus = press.key() == Qt::Key_Plus || press.key() == Qt::Key_Right;
  const bool minus = press.key() == Qt::Key_Minus || press.key() == Qt::Key_Left;
  const bool enter = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter || press.key() == Qt::Key_Space;
  if (press.modifiers() & Qt::ControlModifier) {
    if (press.key() != Qt::Key_Plus && press.key() != Qt::Key_Minus) return false;
    Q_EMIT allGroupsToggled(plus);
    return true;
  }
  const GridRow row = model_->row(currentIndex().row());
  if (row.kind != GridRowKind::Group) return false;
  const bool expanded = model_->rows().group(row.index).expanded;
  if (!enter && !(plus && !expanded) && !(minus && expanded)) return false;
  Q_EMIT groupToggled(row.index);
  return true;
}

bool GridView::searchKey(const QKeyEvent& press) {
  if (model_->isEditable() || !currentIndex().isValid()) return false;
  const int line = currentIndex().row();
  if (!searched_.isEmpty()) {
    if (press.key() == Qt::Key_Escape) {
      endSearch();
      return true;
    }
    if (press.key() == Qt::Key_Backspace) {
      const QString shorter = searched_.left(searched_.size() - 1);
      if (shorter.isEmpty())
        endSearch();
      else
        search(shorter, line, 1);
      return true;
    }
    const bool control = press.modifiers() & Qt::ControlModifier;
    if (control && press.key() == Qt::Key_Down) return search(searched_, line + 1, 1), true;
    if (control && press.key() == Qt::Key_Up) return search(searched_, line - 1, -1), true;
  }
  if (press.text().isEmpty() || !press.text().front().isPrint() || !writesText(press)) return false;
  if (searched_.isEmpty() && press.key() == Qt::Key_Space) return false;
  search(TurkishText::composed(searched_ + press.text()), line, 1);
  return true;
}

bool GridView::search(const QString& text, int from, int step) {
  const int lines = model_->rowCount();
  const int column = currentColumn();
  const QString wanted = TurkishText::fold(text);
  // Only texts that are stored as they are shown can be looked for in the bytes.
  const int field = model_->fieldOf(column);
  const GridColumn& about = model_->columns()[size_t(column)];
  const bool plainText = field >= 0 && model_->query().fieldInfo(field).type == FieldType::Text && !about.lookUp && about.values.empty();
  FilterExpression::RowTest test;
  if (plainText) test = FilterExpression::condition(about.field, FilterOperator::StartsWith, text).compiled(model_->query().fields());
  int row = -1;
  const FilterExpression::CellReader reader = [&](int each) { return model_->query().rawCell(row, each); };
  for (int i = 0; i < lines; ++i) {
    const int line = ((from + step * i) % lines + lines) % lines;
    const GridRow candidate = model_->row(line);
    if (candidate.kind != GridRowKind::Data) continue;
    row = candidate.index;
    if (plainText ? !test(reader) : !TurkishText::fold(model_->shownAt(row, column)).startsWith(wanted)) continue;
    searched_ = text;
    moving_ = true;
    setCurrentLine(line);
    moving_ = false;
    viewport()->update();
    return true;
  }
  return false;
}

void GridView::endSearch() {
  if (searched_.isEmpty()) return;
  searched_.clear();
  viewport()->update();
}

void GridView::commitData(QWidget* editor) {
  refusal_.clear();
  refusedEditor_ = editor;
  QTableView::commitData(editor);
}

void GridView::focusRefusedEditor() {
  if (refusedEditor_ != nullptr) refusedEditor_->setFocus();
}

void GridView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (hint == QAbstractItemDelegate::RevertModelCache) refusal_.clear();
  if (!refusal_.isEmpty()) return;  // what was typed stays for another try
  const bool entered = hint == QAbstractItemDelegate::SubmitModelCache;
  const bool walks = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem || entered;
  QTableView::closeEditor(editor, walks ? QAbstractItemDelegate::NoHint : hint);
  viewport()->update();
  if (walks) guarded(this, [&] { editNext(entered ? QAbstractItemDelegate::EditNextItem : hint); });
}

/// Goes on to the next cell of the row; behind the last one the row is written and the cursor stands on the row below.
void GridView::editNext(QAbstractItemDelegate::EndEditHint hint) {
  const bool back = hint == QAbstractItemDelegate::EditPreviousItem;
  std::vector<int> columns = shownColumns();
  std::erase_if(columns, [&](int column) { return !(model_->flags(model_->index(currentIndex().row(), column)) & Qt::ItemIsEditable); });
  const auto place = std::find(columns.begin(), columns.end(), currentIndex().column());
  if (place == columns.end()) return;
  const int line = currentIndex().row();
  if (!back && place + 1 != columns.end()) {
    setCurrentIndex(model_->index(line, *(place + 1)));
    edit(currentIndex());
  } else if (back && place != columns.begin()) {
    setCurrentIndex(model_->index(line, *(place - 1)));
    edit(currentIndex());
  } else if (!back && mayLeaveRow(-1)) {
    const bool newItem = model_->row(line).kind == GridRowKind::NewItem;
    setCurrentIndex(model_->index(newItem || line + 1 >= model_->rowCount() ? line : line + 1, columns.front()));
    if (newItem) edit(currentIndex());
  }
}
