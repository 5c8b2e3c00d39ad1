#pragma once

#include "toolkit/report/report_layout.h"

#include <functional>

/// Where everything of a page stands on its paper while it is designed: bands one below the other at their own height, footers
/// at the end of the page. Of a sheet the first label is designed. Millimetres from the paper's upper left corner.
class PagePlaces {
 public:
  struct Band {
    const ReportNode* node;
    QRectF rect;
  };

  explicit PagePlaces(const ReportNode& page);
  /// With bands of other heights, in mm.
  PagePlaces(const ReportNode& page, const std::function<double(const ReportNode& band)>& heightOf);

  const ReportNode& page() const { return *page_; }
  const ReportSheet& sheet() const { return sheet_; }
  /// The page within its margins, or the first label.
  QRectF cell() const { return {sheet_.cellPlace(0), sheet_.cell}; }
  /// Paper, and below it what bands there are too many.
  QRectF whole() const;
  /// From top to bottom.
  const std::vector<Band>& bands() const { return bands_; }
  const Band* bandAt(QPointF place) const;
  const Band* find(const ReportNode& band) const;
  /// Where the objects of a band, or those of the page itself, have their origin.
  QPointF originOf(const ReportNode& parent) const;
  /// An object's rectangle on the paper.
  QRectF rectOf(const ReportNode& object) const;
  /// The node that an object put there would belong to: the band, or the page where there is none.
  const ReportNode& parentAt(QPointF place) const;

 private:
  const ReportNode* page_;
  ReportSheet sheet_;
  std::vector<Band> bands_;
};

/// left, top, width and height of an object, within its parent.
QRectF ownRect(const ReportNode& object);
