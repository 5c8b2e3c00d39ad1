#pragma once

#include "toolkit/report/report_pages.h"
#include "toolkit/report/rich_text.h"

/// A rich text laid out in one column without end, from its upper left corner.
struct RichLayout {
  std::vector<Primitive> primitives;
  std::vector<double> pageStarts;  ///< heights at which a new page was asked for
  std::vector<KeptRange> kept;     ///< what is not parted by a page's end
  double height = 0;
};

RichLayout layoutRichText(const RichText& text, double width);
