#pragma once

#include "toolkit/report/designer/page_places.h"

#include <QLineF>

#include <span>

/// Where something is put while it is moved or resized: at an edge or centre of what else stands on the page, or on the grid.
/// Millimetres on the paper.
class Snapping {
 public:
  /// What stands still: all objects of the page but those that move, the margins and the middle of the page.
  Snapping(const PagePlaces& places, std::span<const ReportNode* const> moving);

  struct Rules {
    double reach = 1;     ///< how near an edge has to come to be caught; 0 catches nothing
    double grid = 0;      ///< step of the grid; 0 is none
    QPointF gridOrigin = {};
  };
  struct Result {
    QPointF by;                    ///< to be added
    std::vector<QLineF> guides;    ///< lines to be shown: from one end of what lines up to the other
  };

  /// For a rectangle that moves as a whole.
  Result moved(const QRectF& rect, const Rules& rules) const;
  /// For the edges of a rectangle that follow the mouse; by.x() goes for the left or right one, by.y() for top or bottom.
  Result resized(const QRectF& rect, Qt::Edges edges, const Rules& rules) const;

 private:
  struct Caught {
    double by = 0;
    bool isCaught = false;
  };
  Caught caught(std::span<const double> values, bool isAcross, const Rules& rules) const;
  void addGuides(Result& result, const QRectF& rect, std::span<const double> values, bool isAcross) const;

  std::vector<QRectF> still_;
};
