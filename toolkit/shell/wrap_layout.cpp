#include "toolkit/shell/wrap_layout.h"

#include <QWidget>

#include <algorithm>
#include <utility>

WrapLayout::WrapLayout(QWidget* parent, int spacing) : QLayout(parent) { setSpacing(spacing); }

WrapLayout::~WrapLayout() = default;

void WrapLayout::addGap(int width) { nextGap_ = width; }

void WrapLayout::addItem(QLayoutItem* item) { items_.push_back({std::unique_ptr<QLayoutItem>(item), std::exchange(nextGap_, 0)}); }

QLayoutItem* WrapLayout::itemAt(int index) const { return index >= 0 && index < count() ? items_[size_t(index)].item.get() : nullptr; }

QLayoutItem* WrapLayout::takeAt(int index) {
  if (index < 0 || index >= count()) return nullptr;
  QLayoutItem* taken = items_[size_t(index)].item.release();
  items_.erase(items_.begin() + index);
  return taken;
}

std::pair<size_t, int> WrapLayout::rowFrom(size_t first, int width) const {
  size_t end = first;
  int used = 0;
  int height = 0;
  for (; end < items_.size(); ++end) {
    const QSize size = items_[end].item->sizeHint();
    const int wanted = end == first ? size.width() : used + spacing() + items_[end].gap + size.width();
    if (end > first && wanted > width) break;
    if (items_[end].item->isEmpty()) continue;
    used = wanted;
    height = std::max(height, size.height());
  }
  return {end, height};
}

int WrapLayout::heightForWidth(int width) const {
  const QMargins around = contentsMargins();
  int height = 0;
  for (size_t first = 0; first < items_.size();) {
    const auto [end, row] = rowFrom(first, width - around.left() - around.right());
    height += (first == 0 ? 0 : spacing()) + row;
    first = end;
  }
  return height + around.top() + around.bottom();
}

QSize WrapLayout::sizeHint() const {
  QSize all(0, 0);
  for (const Item& each : items_) {
    if (each.item->isEmpty()) continue;
    const QSize size = each.item->sizeHint();
    all = QSize(all.width() + (all.isEmpty() ? 0 : spacing() + each.gap) + size.width(), std::max(all.height(), size.height()));
  }
  return all.grownBy(contentsMargins());
}

QSize WrapLayout::minimumSize() const {
  QSize most;
  for (const Item& each : items_) most = most.expandedTo(each.item->minimumSize());
  return most.grownBy(contentsMargins());
}

void WrapLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  const QRect room = place.marginsRemoved(contentsMargins());
  int y = room.top();
  for (size_t first = 0; first < items_.size();) {
    const auto [end, height] = rowFrom(first, room.width());
    int x = room.left();
    for (size_t i = first; i < end; ++i) {
      if (items_[i].item->isEmpty()) continue;
      if (i > first) x += items_[i].gap;
      const QSize size = items_[i].item->sizeHint().boundedTo(QSize(room.width(), height));
      items_[i].item->setGeometry(QRect(QPoint(x, y + (height - size.height()) / 2), size));
      x += size.width() + spacing();
    }
    y += height + spacing();
    first = end;
  }
}
