#pragma once

#include "toolkit/grid/grid_pages.h"
#include "toolkit/report/preview/preview_window.h"

struct GridPreviewRequest {
  QString caption = QStringLiteral("Önizleme");
  GridPageTexts texts;
  QString documentName;  ///< of the printer's job, and proposed for files
  /// When set, a large button "Excel`e Aktar" in the toolbar calls it with the preview as owner of its messages.
  std::function<void(QWidget* preview)> exportToExcel = {};
};

/// Shows a table as it goes on paper.
class GridPreview : public PreviewWindow {
  Q_OBJECT
 public:
  GridPreview(QWidget* owner, std::unique_ptr<TableContent> content, GridPreviewRequest request);

  const GridPages& pages() const;

 private:
  struct Table;
  GridPreview(QWidget* owner, std::shared_ptr<const Table> table, GridPreviewRequest request);

  std::shared_ptr<const Table> table_;
};

/// Shows the preview modally over owner.
void showGridPreview(QWidget* owner, std::unique_ptr<TableContent> content, const GridPreviewRequest& request);
