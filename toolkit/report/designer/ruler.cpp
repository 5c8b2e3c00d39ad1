#include "toolkit/report/designer/ruler.h"

#include "base/guard.h"
#include "toolkit/report/designer/design_canvas.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int thickness = 22;
constexpr double leastDots = 5;      ///< between two marks
constexpr double leastNumber = 46;   ///< dots between two numbers

/// Step of the marks in mm at that many dots for each.
double niceStep(double dots, double least) {
  for (const double step : {1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0})
    if (step * dots >= least) return step;
  return 200;
}

}  // namespace

Ruler::Ruler(DesignCanvas& canvas, Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), canvas_(canvas), orientation_(orientation) {
  orientation == Qt::Horizontal ? setFixedHeight(thickness) : setFixedWidth(thickness);
  connectGuarded(&canvas, &DesignCanvas::zoomChanged, this, [this] { update(); });
  connectGuarded(&canvas, &DesignCanvas::pointed, this, [this](QPointF place) {
    pointer_ = orientation_ == Qt::Horizontal ? place.x() : place.y();
    update();
  });
  connectGuarded(&canvas.editor(), &ReportEditor::selectionChanged, this, [this] { update(); });
  connectGuarded(&canvas.editor(), &ReportEditor::changed, this, [this] { update(); });
}

QSize Ruler::sizeHint() const { return {thickness, thickness}; }

void Ruler::paintEvent(QPaintEvent*) {
  guarded(this, [&] {
    QPainter painter(this);
    const bool isAcross = orientation_ == Qt::Horizontal;
    painter.fillRect(rect(), palette().color(QPalette::Base));
    const QTransform toView = canvas_.toView();
    const auto place = [&](double millimetres) {
      const QPointF point = toView.map(isAcross ? QPointF(millimetres, 0) : QPointF(0, millimetres));
      return isAcross ? point.x() : point.y();
    };
    const double length = isAcross ? width() : height();
    const auto band = [&](double from, double to, const QColor& color) {
      const QRectF all(isAcross ? QRectF(from, 0, to - from, height()) : QRectF(0, from, width(), to - from));
      painter.fillRect(all, color);
    };
    const ReportSheet& sheet = canvas_.places().sheet();
    const QColor outside = palette().color(QPalette::Window);
    const double paperEnd = place(isAcross ? sheet.paper.width() : sheet.paper.height());
    band(0, std::max(0.0, place(0)), outside);
    band(std::min(length, paperEnd), length, outside);
    const std::vector<ReportNode*> objects = canvas_.editor().selectedObjects();
    if (!objects.empty()) {
      const QRectF bounds = Arranging::bounds(objects, canvas_.places());
      QColor tint = palette().color(QPalette::Highlight);
      tint.setAlpha(60);
      band(place(isAcross ? bounds.left() : bounds.top()), place(isAcross ? bounds.right() : bounds.bottom()), tint);
    }
    const double origin = isAcross ? canvas_.places().cell().left() : canvas_.places().cell().top();
    const double dots = toView.m11();
    const double step = niceStep(dots, leastDots);
    const double numbered = niceStep(dots, leastNumber);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.78);
    painter.setFont(small);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const double first = std::ceil((-place(origin)) / dots / step) * step;
    for (double mark = first; place(origin + mark) < length; mark += step) {
      const double at = std::round(place(origin + mark)) + 0.5;
      const bool isNumbered = std::abs(std::remainder(mark, numbered)) < 1e-6;
      const double size = isNumbered ? thickness * 0.5 : std::abs(std::remainder(mark, step * 5)) < 1e-6 ? thickness * 0.34 : thickness * 0.2;
      isAcross ? painter.drawLine(QPointF(at, thickness - size), QPointF(at, thickness)) : painter.drawLine(QPointF(thickness - size, at), QPointF(thickness, at));
      if (!isNumbered) continue;
      const QString number = QString::number(qRound(mark));
      painter.save();
      painter.setPen(palette().color(QPalette::WindowText));
      painter.translate(isAcross ? QPointF(at + 3, 0) : QPointF(0, at - 3));
      if (!isAcross) painter.rotate(-90);
      painter.drawText(QRectF(0, 0, leastNumber, thickness * 0.62), Qt::AlignLeft | Qt::AlignVCenter, number);
      painter.restore();
    }
    painter.setPen(palette().color(QPalette::Mid));
    isAcross ? painter.drawLine(0, thickness - 1, width(), thickness - 1) : painter.drawLine(thickness - 1, 0, thickness - 1, height());
    painter.setPen(palette().color(QPalette::Highlight));
    const double pointer = std::round(place(pointer_)) + 0.5;
    isAcross ? painter.drawLine(QPointF(pointer, 0), QPointF(pointer, thickness)) : painter.drawLine(QPointF(0, pointer), QPointF(thickness, pointer));
  });
}
