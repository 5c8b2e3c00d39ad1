#include "toolkit/grid/grid_header.h"

#include "app/guard.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_model.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
constexpr int signRoom = 14;
}

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

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
  painter->save();
  QHeaderView::paintSection(painter, rect, logicalIndex);
  painter->restore();
  const QString& field = model_->columns()[size_t(logicalIndex)].field;
  const auto key = std::find_if(order_.begin(), order_.end(), [&](const GridSort& sort) {
    return sort.field.compare(field, Qt::CaseInsensitive) == 0;
  });
  if (key == order_.end()) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const QRect room(model_->isNumber(logicalIndex) ? rect.left() + 2 : rect.right() - signRoom, rect.top(), signRoom - 2, rect.height());
  painter->fillRect(room, palette().color(QPalette::Button));
  const QPointF centre = QRectF(room).center();
  const double tip = key->descending ? 3 : -3;
  QPainterPath sign;
  sign.moveTo(centre.x() - 4, centre.y() - tip);
  sign.lineTo(centre.x() + 4, centre.y() - tip);
  sign.lineTo(centre.x(), centre.y() + tip);
  sign.closeSubpath();
  painter->fillPath(sign, palette().color(QPalette::Link));
  if (order_.size() > 1) {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    painter->setFont(small);
    painter->setPen(palette().color(QPalette::ButtonText));
    const QRect beside = room.translated(-signRoom + 3, 0);
    painter->fillRect(beside, palette().color(QPalette::Button));
    painter->drawText(beside, Qt::AlignCenter, QString::number(key - order_.begin() + 1));
  }
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
