#pragma once

#include "toolkit/report/paged_document.h"

#include <QListView>

/// Small pictures of all pages; a page is painted when it comes into view.
class PageThumbs : public QListView {
  Q_OBJECT
 public:
  /// document must outlive it.
  PageThumbs(const PagedDocument& document, QWidget* parent);

  void setPage(int page);

 Q_SIGNALS:
  void pageChosen(int page);
};
