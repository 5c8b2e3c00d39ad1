#include "toolkit/report/designer/canvas_marks.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double leastGridDots = 7;  ///< nearer to one another, grid points are left out
constexpr double shadow = 3;
const QColor guideColor(0xe0, 0x3e, 0x8c);
const QColor marginColor(0x8f, 0xb4, 0xd6);
const QColor gridColor(0xc4, 0xcd, 0xd6);
const QColor bandColor(0xa9, 0xb7, 0xc5);
const QColor hintColor(0x6b, 0x77, 0x83);  // on the paper, which is white in every look

/// Lines on whole dots are sharp.
QRectF sharp(const QRectF& rect) { return QRectF(rect.toAlignedRect()).adjusted(0.5, 0.5, -0.5, -0.5); }

}  // namespace

QRectF handleFrame(const QRectF& rect) {
  const double across = std::max(0.0, (3 * handleSize - rect.width()) / 2);
  const double down = std::max(0.0, (3 * handleSize - rect.height()) / 2);
  return rect.adjusted(-across, -down, across, down);
}

QPointF handlePlace(const QRectF& rect, int handle) {
  const double x[] = {rect.left(), rect.center().x(), rect.right(), rect.right(), rect.right(), rect.center().x(), rect.left(), rect.left()};
  const double y[] = {rect.top(), rect.top(), rect.top(), rect.center().y(), rect.bottom(), rect.bottom(), rect.bottom(), rect.center().y()};
  return {x[handle], y[handle]};
}

Qt::Edges handleEdges(int handle) {
  static const Qt::Edges edges[] = {Qt::LeftEdge | Qt::TopEdge,     Qt::TopEdge,    Qt::TopEdge | Qt::RightEdge,   Qt::RightEdge,
                                    Qt::RightEdge | Qt::BottomEdge, Qt::BottomEdge, Qt::BottomEdge | Qt::LeftEdge, Qt::LeftEdge};
  return edges[handle];
}

void CanvasMarks::paintPaper(QPainter& painter, const QRect& view, double grid) const {
  painter.fillRect(view, palette.color(QPalette::Window).darker(palette.color(QPalette::Window).lightness() > 127 ? 108 : 125));
  const QRectF paper = toView.mapRect(QRectF(QPointF(), places.sheet().paper));
  const QRectF whole = toView.mapRect(places.whole());
  painter.fillRect(whole.translated(shadow, shadow), QColor(0, 0, 0, 45));
  painter.fillRect(whole, Qt::white);
  if (whole.height() > paper.height()) painter.fillRect(whole.adjusted(0, paper.height(), 0, 0), QColor(0xfb, 0xee, 0xee));
  if (grid > 0) {
    const double step = grid * toView.m11();
    const int every = std::max(1, int(std::ceil(leastGridDots / step)));
    const QRectF room = toView.mapRect(places.cell());
    const QRectF seen = room & QRectF(view);
    painter.setPen(gridColor);
    std::vector<QPointF> points;
    const double spacing = step * every;
    for (double y = room.top() + std::ceil((seen.top() - room.top()) / spacing) * spacing; y <= seen.bottom(); y += spacing)
      for (double x = room.left() + std::ceil((seen.left() - room.left()) / spacing) * spacing; x <= seen.right(); x += spacing)
        points.emplace_back(std::round(x), std::round(y));
    painter.drawPoints(points.data(), int(points.size()));
  }
  painter.setBrush(Qt::NoBrush);
  const ReportSheet& sheet = places.sheet();
  painter.setPen(QPen(bandColor, 1, Qt::DotLine));
  for (int cell = 1; cell < sheet.columns * sheet.rows; ++cell) painter.drawRect(sharp(toView.mapRect(QRectF(sheet.cellPlace(cell), sheet.cell))));
  painter.setPen(QPen(marginColor, 1, Qt::DashLine));
  painter.drawRect(sharp(toView.mapRect(places.cell())));
}

QRectF CanvasMarks::tagOf(const PagePlaces::Band& band) const {
  const QRectF rect = toView.mapRect(band.rect);
  const double left = toView.map(QPointF()).x() - tagWidth - 4;
  return {left, rect.top(), tagWidth, std::max(rect.height(), 3.0)};
}

void CanvasMarks::paintBands(QPainter& painter, const ReportNode* selected) const {
  QFont small = font;
  small.setPointSizeF(font.pointSizeF() * 0.9);
  painter.setFont(small);
  const QFontMetrics metrics(small);
  const QColor accent = palette.color(QPalette::Highlight);
  for (const PagePlaces::Band& band : places.bands()) {
    const QRectF rect = toView.mapRect(band.rect);
    const QRectF tag = tagOf(band);
    const bool isSelected = band.node == selected;
    if (isSelected) {
      QColor tint = accent;
      tint.setAlpha(22);
      painter.fillRect(rect, tint);
    }
    painter.setPen(QPen(isSelected ? accent : bandColor, 1, isSelected ? Qt::SolidLine : Qt::DashLine));
    const double bottom = std::round(rect.bottom()) - 0.5;
    painter.drawLine(QPointF(tag.left(), bottom), QPointF(rect.right(), bottom));
    const QRectF plate = tag.adjusted(0, 1, 0, -1);
    painter.fillRect(plate, isSelected ? accent : palette.color(QPalette::Button));
    painter.fillRect(QRectF(plate.left(), plate.top(), 3, plate.height()), accent);
    if (plate.height() < metrics.height() - 3) continue;
    painter.setPen(palette.color(isSelected ? QPalette::HighlightedText : QPalette::ButtonText));
    const auto& choices = propertiesOf(NodeKind::Band)[*findProperty(NodeKind::Band, u"kind")].choices;
    QString kind;
    for (const PropertyChoice& each : choices)
      if (each.word == band.node->text(u"kind")) kind = each.caption;
    const QString data = band.node->text(u"data");
    const QString name = band.node->name().isEmpty() ? kind : band.node->name();
    const QRectF inside = plate.adjusted(8, 0, -4, 0);
    const QString lower = data.isEmpty() ? kind : u"%1: %2"_s.arg(kind, data);
    const bool isHigh = plate.height() >= 2 * metrics.height() && lower != name;
    const QString upper = metrics.elidedText(name, Qt::ElideRight, int(inside.width()));
    if (!isHigh) {
      painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, upper);
      continue;
    }
    const QRectF both(inside.left(), inside.center().y() - metrics.height(), inside.width(), 2 * metrics.height());
    painter.drawText(both, Qt::AlignLeft | Qt::AlignTop, upper);
    painter.setPen(palette.color(isSelected ? QPalette::HighlightedText : QPalette::PlaceholderText));
    painter.drawText(both, Qt::AlignLeft | Qt::AlignBottom,
                     metrics.elidedText(lower, Qt::ElideRight, int(inside.width())));
  }
}

void CanvasMarks::paintSelection(QPainter& painter, const std::vector<QRectF>& rects, const QRectF& bounds, bool isLocked) const {
  if (rects.empty()) return;
  const QColor accent = palette.color(QPalette::Highlight);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(accent, 1));
  for (const QRectF& rect : rects) painter.drawRect(sharp(toView.mapRect(rect)));
  const QRectF around = toView.mapRect(bounds);
  if (rects.size() > 1) {
    painter.setPen(QPen(accent, 1, Qt::DashLine));
    painter.drawRect(sharp(around));
  }
  painter.setPen(QPen(accent, 1.2));
  painter.setBrush(isLocked ? palette.color(QPalette::Mid) : QColor(Qt::white));
  for (int handle = 0; handle < 8; ++handle) {
    const QPointF middle = handlePlace(handleFrame(around), handle);
    painter.drawRect(QRectF(middle - QPointF(handleSize / 2, handleSize / 2), QSizeF(handleSize, handleSize)));
  }
}

void CanvasMarks::paintGuides(QPainter& painter, const std::vector<QLineF>& guides) const {
  painter.setPen(QPen(guideColor, 1));
  for (const QLineF& guide : guides) painter.drawLine(toView.map(guide));
}

void CanvasMarks::paintRubber(QPainter& painter, const QRectF& rect) const {
  const QColor accent = palette.color(QPalette::Highlight);
  QColor tint = accent;
  tint.setAlpha(30);
  painter.setPen(QPen(accent, 1));
  painter.setBrush(tint);
  painter.drawRect(sharp(toView.mapRect(rect)));
}

void CanvasMarks::paintHint(QPainter& painter) const {
  const QString hint = u"Soldaki listeden bir veriyi buraya sürükleyin ya da bir araç seçip çizin.\n\nHer parça için yinelenecek satırlar, sayfa üstü ve "
                       u"altı: Ekle menüsünde “Bant”."_s;
  constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
  constexpr double aside = 12;
  const QRectF room = toView.mapRect(places.cell()).adjusted(aside, aside, -aside, -aside);
  painter.setFont(font);
  if (!room.contains(painter.boundingRect(room, flags, hint))) return;
  painter.setPen(hintColor);
  painter.drawText(room, flags, hint);
}
