#include "toolkit/grid/grid_header.h"

#include "base/guard.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_model.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>

GridHeader::GridHeader(GridModel* model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model), filterRow_(new FilterRow(model, this)) {
  setSectionsMovable(true);
  setSectionsClickable(true);
  setHighlightSections(false);
  setMinimumSectionSize(24);
  setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  const auto arrange = [this] { filterRow_->arrange(); };
  connectGuarded(this, &QHeaderView::sectionResized, filterRow_, arrange);
  connectGuarded(this, &QHeaderView::sectionMoved, filterRow_, arrange);
}

void GridHeader::setFilterRowShown(bool shown) {
  filterRow_->setShown(shown);
  updateGeometries();
}

void GridHeader::setOrder(const std::vector<GridSort>& order) {
  order_ = order;
  viewport()->update();
}

QSize GridHeader::sizeHint() const {
  QSize size = QHeaderView::sizeHint();
  size.setHeight(fontMetrics().height() + 10);
  if (filterRow_->isShown()) size.rheight() += fontMetrics().height() + 10;
  return size;
}

void GridHeader::updateGeometries() {
  const int room = filterRow_->isShown() ? fontMetrics().height() + 10 : 0;
  setViewportMargins(0, 0, 0, room);
  QHeaderView::updateGeometries();
  if (room == 0) return;
  filterRow_->setGeometry(0, height() - room, width(), room);
  filterRow_->arrange();
}

int GridHeader::sortPlace(int column) const {
  const QString& field = model_->columns()[size_t(column)].field;
  const auto key = std::find_if(order_.begin(), order_.end(), [&](const GridSort& sort) {
    return sort.field.compare(field, Qt::CaseInsensitive) == 0;
  });
  return key == order_.end() ? -1 : int(key - order_.begin());
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const {
  QHeaderView::initStyleOptionForIndex(option, logicalIndex);
  if (const int place = sortPlace(logicalIndex); place >= 0)
    option->sortIndicator = order_[size_t(place)].descending ? QStyleOptionHeader::SortUp : QStyleOptionHeader::SortDown;
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
  painter->save();
  QHeaderView::paintSection(painter, rect, logicalIndex);
  painter->restore();
  const int place = sortPlace(logicalIndex);
  if (place < 0 || order_.size() < 2) return;
  painter->save();
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.75);
  painter->setFont(small);
  painter->setPen(palette().color(QPalette::Link));
  painter->drawText(rect.adjusted(0, 0, -2, 0), Qt::AlignBottom | Qt::AlignRight, QString::number(place + 1));
  painter->restore();
}

bool GridHeader::isOverTarget(const QMouseEvent& event) const {
  return groupTarget_ != nullptr && groupTarget_->isVisible() &&
         groupTarget_->rect().contains(groupTarget_->mapFromGlobal(event.globalPosition().toPoint()));
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? logicalIndexAt(event->position().toPoint()) : -1;
  pressedPlace_ = pressed_ < 0 ? -1 : visualIndex(pressed_);
  pressedSize_ = pressed_ < 0 ? 0 : sectionSize(pressed_);
  QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event) {
  QHeaderView::mouseMoveEvent(event);
  guarded(this, [&] {
    if (pressed_ >= 0) Q_EMIT draggedOverTarget(isOverTarget(*event));
  });
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  const int released = logicalIndexAt(event->position().toPoint());
  QHeaderView::mouseReleaseEvent(event);
  guarded(this, [&] {
    if (pressed_ < 0) return;
    const int column = std::exchange(pressed_, -1);
    Q_EMIT draggedOverTarget(false);
    if (isOverTarget(*event)) {
      moveSection(visualIndex(column), pressedPlace_);
      Q_EMIT groupAsked(column);
    } else if (released == column && visualIndex(column) == pressedPlace_ && sectionSize(column) == pressedSize_ &&
               rect().contains(event->position().toPoint()) && cursor().shape() != Qt::SplitHCursor) {
      Q_EMIT sortAsked(column, event->modifiers());
    }
  });
}

void GridHeader::contextMenuEvent(QContextMenuEvent* event) {
  guarded(this, [&] {
    const int column = event->reason() == QContextMenuEvent::Keyboard ? -1 : logicalIndexAt(event->pos());
    if (column >= 0) Q_EMIT menuAsked(column, event->globalPos());
  });
}
