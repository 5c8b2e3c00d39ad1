#include "toolkit/grid/grid_preview.h"

#include <QApplication>

/// The pages and what they show.
struct GridPreview::Table {
  Table(std::unique_ptr<TableContent> shown, const GridPageTexts& texts) : content(std::move(shown)), pages(*content, texts, QApplication::font()) {}
  std::unique_ptr<TableContent> content;
  GridPages pages;
};

GridPreview::GridPreview(QWidget* owner, std::unique_ptr<TableContent> content, GridPreviewRequest request)
    : GridPreview(owner, std::make_shared<const Table>(std::move(content), request.texts), request) {}

GridPreview::GridPreview(QWidget* owner, std::shared_ptr<const Table> table, GridPreviewRequest request)
    : PreviewWindow(owner, std::shared_ptr<const PagedDocument>(table, &table->pages),
                    {.caption = request.caption, .documentName = request.documentName, .exportToExcel = std::move(request.exportToExcel)}),
      table_(std::move(table)) {}

const GridPages& GridPreview::pages() const { return table_->pages; }

void showGridPreview(QWidget* owner, std::unique_ptr<TableContent> content, const GridPreviewRequest& request) {
  GridPreview preview(owner, std::move(content), request);
  preview.exec();
}
