#include "toolkit/report/report_pages.h"

#include "toolkit/report/object_layout.h"

#include <QTransform>

namespace {

struct Bounds {
  QRectF operator()(const TextMark& mark) const {
    const QRectF line(0, -mark.ascent, mark.width, mark.ascent + mark.descent);
    return QTransform().translate(mark.origin.x(), mark.origin.y()).rotate(mark.rotation).mapRect(line);
  }
  QRectF operator()(const StrokeMark& mark) const { return QRectF(mark.from, mark.to).normalized(); }
  QRectF operator()(const std::shared_ptr<PendingText>& mark) const { return mark->rect; }
  template <class Mark>
  QRectF operator()(const Mark& mark) const {
    return mark.rect;
  }
};

struct Mover {
  QPointF by;
  void operator()(TextMark& mark) const { mark.origin += by; }
  void operator()(StrokeMark& mark) const {
    mark.from += by;
    mark.to += by;
  }
  void operator()(std::shared_ptr<PendingText>& mark) const { mark->rect.translate(by); }
  template <class Mark>
  void operator()(Mark& mark) const {
    mark.rect.translate(by);
  }
};

}  // namespace

QRectF boundsOf(const Primitive& primitive) { return std::visit(Bounds(), primitive); }

void moveBy(Primitive& primitive, double right, double down) { std::visit(Mover{{right, down}}, primitive); }
