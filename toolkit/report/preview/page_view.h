#pragma once

#include "toolkit/report/paged_document.h"

#include <QWidget>

/// One page on the screen, with the places of a searched word marked.
class PageView : public QWidget {
  Q_OBJECT
 public:
  /// document must outlive it.
  PageView(const PagedDocument& document, QWidget* parent);

  double zoom() const { return zoom_; }  ///< 1: as large as on paper
  void show(int page, double zoom);
  /// Marks places on the page, in mm; current is one of them or -1.
  void mark(std::vector<QRectF> places, int current);
  /// Place of a mark on this widget.
  QRect placeOf(int mark) const;
  /// Size of a page at a zoom, with the room around it.
  static QSizeF outerSize(QSizeF page, double zoom);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PagedDocument& document_;
  int page_ = 0;
  double zoom_ = 1;
  std::vector<QRectF> marks_;
  int current_ = -1;
};
