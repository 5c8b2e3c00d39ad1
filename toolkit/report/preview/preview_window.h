#pragma once

#include "toolkit/report/paged_output.h"

#include <QDialog>

#include <functional>
#include <memory>

class PageThumbs;
class PageView;
class QAction;
class QLabel;
class QLineEdit;
class QScrollArea;
class QSpinBox;

struct PreviewRequest {
  QString caption = QStringLiteral("Önizleme");
  QString documentName = {};  ///< of the printer's job and of the PDF, which it is proposed for as its file's name
  QString printer = {};       ///< that the print dialog proposes; empty is the system's default
  int copies = 1;
  /// When set, a large button "Excel`e Aktar" in the toolbar calls it with the preview as owner of its messages.
  std::function<void(QWidget* preview)> exportToExcel = {};
};

/// The program's one preview: pages as they go on paper, one at a time, with small pictures of all of them. Finds words,
/// prints, and writes PDF.
class PreviewWindow : public QDialog {
  Q_OBJECT
 public:
  PreviewWindow(QWidget* owner, std::shared_ptr<const PagedDocument> document, PreviewRequest request);
  ~PreviewWindow() override;

  int page() const { return page_; }
  void goTo(int page);
  /// Goes to the next place of a word, or with a step of -1 to the one before, over the ends too. False when there is none.
  bool findWord(const QString& word, int step = 1);
  /// Writes all pages as PDF; the file is replaced in one step. Throws EInOutError.
  void writePdf(const QString& file);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildToolBar();
  void buildSearch();
  QAction* addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key, std::function<void()> work);
  void zoomTo(double zoom);
  void fitWidth();
  void fitPage();
  void showHit(const std::vector<QRectF>& places, int hit);
  bool hasPrinter();
  void moveOnPaper();
  void print();
  void savePdf();
  void tell(const QString& instruction, const QString& text);
  /// Runs work with a window of progress over the pages of a range.
  bool withProgress(int pages, const std::function<bool(const PageProgress&)>& work);

  std::shared_ptr<const PagedDocument> document_;
  PreviewRequest request_;
  QWidget* toolBar_ = nullptr;
  PageThumbs* thumbs_;
  PageView* view_;
  QScrollArea* scroll_;
  QSpinBox* pageBox_ = nullptr;
  QLabel* zoomText_ = nullptr;
  QLineEdit* searchBox_ = nullptr;
  QLabel* searchText_ = nullptr;
  int page_ = 0;
  QString word_;
  int hit_ = -1;  ///< of the word on the page
};

/// Shows the preview modally over owner.
void showPreview(QWidget* owner, std::shared_ptr<const PagedDocument> document, const PreviewRequest& request);
