#pragma once

#include "toolkit/grid/grid_pages.h"

#include <QDialog>

#include <functional>
#include <memory>

class PagePicture;
class QAction;
class QPagedPaintDevice;
class QScrollArea;
class QSpinBox;
class QLabel;

struct GridPreviewRequest {
  QString caption = QStringLiteral("Önizleme");
  GridPageTexts texts;
  QString documentName;  ///< of the printer's job, and proposed for files
  /// When set, a large button "Excel`e Aktar" in the toolbar calls it with the preview as owner of its messages.
  std::function<void(QWidget* preview)> exportToExcel = {};
};

/// Shows a table as it goes on paper: one page at a time, painted when it is looked at. Prints it and writes it as PDF.
class GridPreview : public QDialog {
  Q_OBJECT
 public:
  GridPreview(QWidget* owner, std::unique_ptr<TableContent> content, GridPreviewRequest request);
  ~GridPreview() override;

  const GridPages& pages() const { return pages_; }
  int page() const { return page_; }
  void goTo(int page);
  /// Writes all pages as PDF; the file is replaced in one step. Throws EInOutError.
  void writePdf(const QString& file);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildToolBar();
  QAction* addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key, std::function<void()> work);
  void zoomTo(double zoom);
  void fitWidth();
  void fitPage();
  void print();
  void savePdf();
  /// Pages from first to last, each as large as the device's paper lets it be. False when the user stopped it. Throws
  /// EInOutError.
  bool paintAll(QPagedPaintDevice& device, int first, int last);

  std::unique_ptr<TableContent> content_;
  GridPreviewRequest request_;
  GridPages pages_;
  PagePicture* picture_;
  QScrollArea* scroll_;
  QSpinBox* pageBox_ = nullptr;
  QLabel* zoomText_ = nullptr;
  QWidget* toolBar_ = nullptr;
  int page_ = 0;
};

/// Shows the preview modally over owner.
void showGridPreview(QWidget* owner, std::unique_ptr<TableContent> content, const GridPreviewRequest& request);
