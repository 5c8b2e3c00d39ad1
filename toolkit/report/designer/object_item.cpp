#include "toolkit/report/designer/object_item.h"

#include "base/guard.h"
#include "toolkit/report/designer/page_places.h"
#include "toolkit/report/report_painter.h"

#include <QPainter>

namespace {

constexpr double around = 0.6;  ///< mm that lines may be wider than what they go round
const QColor emptyFrame(0x9a, 0xa9, 0xb8, 150);
const QColor faultFrame(0xc6, 0x28, 0x28);

/// Nothing of its own shows where it ends.
bool needsFrame(const ReportNode& object) {
  switch (object.kind()) {
    case NodeKind::Line:
    case NodeKind::Rectangle: return false;
    case NodeKind::Text: return object.text(u"border").isEmpty();
    default: return true;
  }
}

}  // namespace

ObjectItem::ObjectItem(const ReportNode& object) : object_(&object), size_(ownRect(object).size()) {
  setCacheMode(DeviceCoordinateCache);
}

void ObjectItem::show(const DesignSample& sample, bool withData) {
  prepareGeometryChange();
  size_ = ownRect(*object_).size();
  look_ = object_->look();
  shown_ = withData ? printedObject(*object_, sample) : designedObject(*object_, sample);
  update();
}

void ObjectItem::refresh(const DesignSample& sample, bool withData) {
  if (look_ != object_->look()) show(sample, withData);
}

void ObjectItem::moveTo(QPointF place) {
  setPos(place);
  update();
}

void ObjectItem::preview(const QSizeF& size) {
  if (size == size_) return;
  prepareGeometryChange();
  size_ = size;
  update();
}

void ObjectItem::setFaulty(bool isFaulty) {
  if (isFaulty == isFaulty_) return;
  isFaulty_ = isFaulty;
  update();
}

QRectF ObjectItem::boundingRect() const {
  return shown_.bounds.united(QRectF(QPointF(), size_)).adjusted(-around, -around, around, around);
}

void ObjectItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  guarded(nullptr, [&] {
    const QRectF rect(QPointF(), size_);
    if (needsFrame(*object_)) {
      painter->setPen(QPen(emptyFrame, 0, Qt::DotLine));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(rect);
    }
    paintReportPage(*painter, shown_.page, true);
    if (object_->kind() == NodeKind::Picture && shown_.page.primitives.empty()) {
      painter->setPen(QPen(emptyFrame, 0));
      painter->drawLine(rect.topLeft(), rect.bottomRight());
      painter->drawLine(rect.topRight(), rect.bottomLeft());
    }
    if (!isFaulty_) return;
    painter->setPen(QPen(faultFrame, 0, Qt::DashLine));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(rect);
  });
}
