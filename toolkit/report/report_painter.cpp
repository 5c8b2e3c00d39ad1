#include "toolkit/report/report_painter.h"

#include "toolkit/report/text_lines.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double snapsFrom = 1;  ///< device dots that a module has at least when its bars are put on whole dots
constexpr double vectorInset = 0.1;  ///< of a dot: what makes dots of a PDF paints each one that a bar touches
const QColor faultColor(0xc6, 0x28, 0x28);

double dots(double millimetres) { return millimetres * dotsPerMillimetre; }
QPointF dots(QPointF place) { return place * dotsPerMillimetre; }
QRectF dots(const QRectF& rect) { return {rect.topLeft() * dotsPerMillimetre, rect.size() * dotsPerMillimetre}; }

/// Where modules begin along one axis of the device: on whole dots where the device has enough of them.
struct ModuleAxis {
  double begin = 0;
  double module = 0;

  ModuleAxis(double from, double length, double count, bool snaps) : begin(from), module(length / count) {
    if (!snaps || module < snapsFrom) return;
    module = std::floor(module);
    begin = std::round(from + (length - module * count) / 2);
  }
};

class PagePainter {
 public:
  PagePainter(QPainter& painter, bool withMarks) : painter_(painter), withMarks_(withMarks) {}

  void operator()(const TextMark& mark) {
    if (mark.wordSpacing != 0) {
      QFont font = mark.font;
      font.setWordSpacing(dots(mark.wordSpacing));
      painter_.setFont(font);
    } else {
      painter_.setFont(mark.font);
    }
    painter_.setPen(mark.color);
    if (mark.rotation == 0) {
      painter_.drawText(dots(mark.origin), mark.text);
      return;
    }
    painter_.save();
    painter_.translate(dots(mark.origin));
    painter_.rotate(mark.rotation);
    painter_.drawText(QPointF(), mark.text);
    painter_.restore();
  }

  void operator()(const StrokeMark& mark) {
    painter_.setPen(QPen(mark.color, dots(mark.width), mark.style, mark.style == Qt::SolidLine ? Qt::SquareCap : Qt::FlatCap));
    painter_.drawLine(dots(mark.from), dots(mark.to));
  }

  void operator()(const BoxMark& mark) {
    painter_.setPen(mark.lineWidth > 0 ? QPen(mark.line, dots(mark.lineWidth), mark.style, Qt::SquareCap, Qt::MiterJoin) : QPen(Qt::NoPen));
    painter_.setBrush(mark.fill.isValid() ? QBrush(mark.fill) : QBrush(Qt::NoBrush));
    if (mark.radius > 0)
      painter_.drawRoundedRect(dots(mark.rect), dots(mark.radius), dots(mark.radius));
    else
      painter_.drawRect(dots(mark.rect));
  }

  void operator()(const PictureMark& mark) { painter_.drawImage(dots(mark.rect), mark.image); }

  void operator()(const BarsMark& mark) {
    const QTransform toDevice = painter_.deviceTransform();
    const bool snaps = toDevice.type() <= QTransform::TxScale;
    const bool isVector = painter_.paintEngine() && painter_.paintEngine()->type() == QPaintEngine::Pdf;
    const double inset = snaps && isVector ? vectorInset : 0;
    const QTransform toPage = snaps ? toDevice.inverted() : QTransform();
    const QRectF field = snaps ? toDevice.mapRect(dots(mark.rect)) : dots(mark.rect);
    const bool isAcross = mark.rotation == 90 || mark.rotation == 270;
    const ModuleAxis along(isAcross ? field.top() : field.left(), isAcross ? field.height() : field.width(), mark.columns, snaps);
    const ModuleAxis down(isAcross ? field.left() : field.top(), isAcross ? field.width() : field.height(), mark.rows,
                          snaps && mark.rows > 1);
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing, along.module < snapsFrom);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(mark.color);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QRect& bar : *mark.bars) {
      const bool isTurned = mark.rotation == 180 || mark.rotation == 270;
      const double x = isTurned ? mark.columns - bar.x() - bar.width() : bar.x();
      const bool isFlipped = mark.rotation == 90 || mark.rotation == 180;
      const double y = isFlipped ? mark.rows - bar.y() - bar.height() : bar.y();
      QRectF rect(along.begin + x * along.module, down.begin + y * down.module, bar.width() * along.module, bar.height() * down.module);
      rect.adjust(inset, inset, -inset, -inset);
      if (isAcross) rect = QRectF(rect.y(), rect.x(), rect.height(), rect.width());
      path.addRect(snaps ? toPage.mapRect(rect) : rect);
    }
    painter_.drawPath(path);
    painter_.restore();
  }

  void operator()(const FaultMark& mark) {
    if (!withMarks_) return;
    QColor tint = faultColor;
    tint.setAlpha(40);
    const QRectF rect = dots(mark.rect);
    painter_.fillRect(rect, tint);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(faultColor, dots(0.2), Qt::DashLine));
    painter_.drawRect(rect);
    ReportFont font;
    font.points = 6;
    const QFont letters = layoutFont(font);
    painter_.setFont(letters);
    painter_.setPen(faultColor);
    painter_.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, cutText(mark.reason, letters, mark.rect.width()));
  }

  void operator()(const std::shared_ptr<PendingText>&) {}

 private:
  QPainter& painter_;
  bool withMarks_;
};

}  // namespace

void paintReportPage(QPainter& painter, const ReportPage& page, bool withMarks) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
  painter.scale(1 / dotsPerMillimetre, 1 / dotsPerMillimetre);
  PagePainter each(painter, withMarks);
  for (const Primitive& primitive : page.primitives) std::visit(each, primitive);
  painter.restore();
}
