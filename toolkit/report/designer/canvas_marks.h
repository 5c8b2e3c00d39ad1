#pragma once

#include "toolkit/report/designer/page_places.h"

#include <QLineF>
#include <QPalette>
#include <QTransform>

class QPainter;

/// What the canvas paints around the objects: paper, grid, bands with their names, selection, guides. The colours follow the
/// palette, the paper is white in every look.
struct CanvasMarks {
  const PagePlaces& places;
  QTransform toView;       ///< millimetres on the paper to dots of the view
  QPalette palette;
  QFont font;
  double tagWidth;         ///< of the names of the bands, in dots

  /// Paper with margins, labels of a sheet, grid (step in mm, 0 for none). Painter and rectangle are the view's.
  void paintPaper(QPainter& painter, const QRect& view, double grid) const;
  /// The lines between bands, and their names at the paper's left.
  void paintBands(QPainter& painter, const ReportNode* selected) const;
  void paintSelection(QPainter& painter, const std::vector<QRectF>& rects, const QRectF& bounds, bool isLocked) const;
  void paintGuides(QPainter& painter, const std::vector<QLineF>& guides) const;
  void paintRubber(QPainter& painter, const QRectF& rect) const;
  /// What can be done with a page that holds nothing.
  void paintHint(QPainter& painter) const;

  /// Where a band's name stands, in the view.
  QRectF tagOf(const PagePlaces::Band& band) const;
};

inline constexpr double handleSize = 8;

/// Where the handles of a rectangle of the view stand: round one that is too small to hold them, they do not hide it.
QRectF handleFrame(const QRectF& rect);
/// Middle of a handle of such a frame, from the upper left one clockwise: 0 to 7.
QPointF handlePlace(const QRectF& rect, int handle);
/// The edges that a handle moves.
Qt::Edges handleEdges(int handle);
