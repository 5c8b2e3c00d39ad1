#pragma once

#include "toolkit/grid/table_content.h"
#include "toolkit/report/paged_document.h"

/// Texts of a printed table. "[Date & Time Printed]", "[Page #]" and "[Total Pages]" in the four outer ones stand for what
/// they say.
struct GridPageTexts {
  QString title;
  QString headerLeft = {};
  QString headerRight = {};
  QString footerLeft = {};
  QString footerRight = {};
};

/// A table on A4 paper lying on its side: captions on each page, columns drawn in to the paper's width, all rows in their
/// groups. Pages are worked out by counting, so that a long table costs nothing before it is painted.
class GridPages : public PagedDocument {
 public:
  /// content must outlive it.
  GridPages(const TableContent& content, GridPageTexts texts, const QFont& font);

  int pageCount() const override;
  QSizeF pageSize(int page) const override;
  void paint(QPainter& painter, int page, bool withMarks) const override;
  /// The cells and group lines that hold the word.
  std::vector<QRectF> find(int page, const QString& word) const override;
  /// Rows of the table on a page, counted from 0: the first and the one behind the last.
  std::pair<int, int> rowsOn(int page) const;
  /// Share of their widths that the columns keep on paper; 1 when they fit.
  double scale() const { return scale_; }

 private:
  QString replaced(const QString& text, int page) const;
  void paintCaptions(QPainter& painter, double top) const;
  void paintRow(QPainter& painter, int row, const QRectF& band) const;
  void paintCells(QPainter& painter, int row, const QRectF& band) const;
  double tableTop(int page) const;

  const TableContent& content_;
  GridPageTexts texts_;
  QFont font_;
  QDateTime printedAt_;
  std::vector<ContentColumn> columns_;
  std::vector<double> lefts_;  ///< of the columns, and the right border
  double scale_ = 1;
  double rowHeight_ = 0;
  int rowsOnFirst_ = 0;
  int rowsOnOthers_ = 0;
};
