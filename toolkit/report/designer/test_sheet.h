#pragma once

#include "toolkit/report/paged_document.h"
#include "toolkit/report/report_layout.h"

/// What a test print shows: millimetres along the edges of the paper, its margins and labels. What a ruler reads off the paper
/// is what the printer's offset has to be.
class TestSheet : public PagedDocument {
 public:
  explicit TestSheet(const ReportSheet& sheet) : sheet_(sheet) {}

  int pageCount() const override { return 1; }
  QSizeF pageSize(int) const override { return sheet_.paper; }
  void paint(QPainter& painter, int page, bool withMarks) const override;
  std::vector<QRectF> find(int, const QString&) const override { return {}; }

 private:
  ReportSheet sheet_;
};
