#pragma once

#include "toolkit/report/report_pages.h"

class QPainter;

/// What can be previewed and printed: pages of known size that paint themselves. All measures are millimetres.
class PagedDocument {
 public:
  virtual ~PagedDocument() = default;
  virtual int pageCount() const = 0;
  /// page counts from 0.
  virtual QSizeF pageSize(int page) const = 0;
  /// Paints onto a painter whose unit is the millimetre. withMarks shows what only screens show.
  virtual void paint(QPainter& painter, int page, bool withMarks) const = 0;
  /// Places of a word on a page, without regard to case.
  virtual std::vector<QRectF> find(int page, const QString& word) const = 0;
};

/// The pages of a report.
class ReportPagedDocument : public PagedDocument {
 public:
  explicit ReportPagedDocument(ReportPages pages) : pages_(std::move(pages)) {}

  int pageCount() const override { return int(pages_.pages.size()); }
  QSizeF pageSize(int page) const override { return pages_.pages[size_t(page)].size; }
  void paint(QPainter& painter, int page, bool withMarks) const override;
  std::vector<QRectF> find(int page, const QString& word) const override;
  const ReportPages& pages() const { return pages_; }

 private:
  ReportPages pages_;
};
