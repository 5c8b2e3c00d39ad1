#pragma once

#include "toolkit/report/object_layout.h"

/// Turns a document and its data into pages. Asks no device: the same input gives the same pages everywhere. now is what the
/// date and time of the expressions say. Never fails for what a template holds: faults come with the pages.
ReportPages layoutReport(const ReportDocument& document, const ReportData& data, const RichTexts& richTexts, const QDateTime& now);

/// Size of the paper that a page of a template is printed on, as it lies.
QSizeF paperSize(const ReportNode& page);

/// How a page of a template divides its paper: in one cell within the margins, or in a sheet of labels. Millimetres.
struct ReportSheet {
  explicit ReportSheet(const ReportNode& page);

  QSizeF paper;
  QMarginsF margins;
  QSizeF cell;  ///< what bands and objects stand in: the page within its margins, or one label
  int columns = 1;
  int rows = 1;
  double columnGap = 0;
  double rowGap = 0;
  bool isSheet() const { return columns * rows > 1; }
  /// Where a cell lies on the paper; counted from left to right, then down.
  QPointF cellPlace(int index) const;
};
