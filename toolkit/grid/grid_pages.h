#pragma once

#include "toolkit/grid/table_content.h"

#include <QFont>
#include <QRectF>

#include <vector>

class QPainter;

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
class GridPages {
 public:
  /// content must outlive it.
  GridPages(const TableContent& content, GridPageTexts texts, const QFont& font);

  /// Size of the paper in the units that pages are painted in: 96 to the inch.
  static QSizeF paperSize();
  int pageCount() const;
  /// Rows of the table on a page, counted from 0: the first and the one behind the last.
  std::pair<int, int> rowsOn(int page) const;
  /// Share of their widths that the columns keep on paper; 1 when they fit.
  double scale() const { return scale_; }

  /// Paints one page onto a painter whose units are 96 to the inch.
  void paint(QPainter& painter, int page) const;

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
