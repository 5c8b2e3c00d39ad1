#include "toolkit/report/preview/preview_window.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/report/preview/offset_dialog.h"
#include "toolkit/report/preview/page_thumbs.h"
#include "toolkit/report/preview/page_view.h"
#include "toolkit/report/printing.h"
#include "toolkit/shell/wrap_layout.h"

#include <QAction>
#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double leastZoom = 0.25;
constexpr double mostZoom = 4;
constexpr double zoomStep = 1.25;
constexpr int closeButton = 1;

/// Pages that were typed one by one are told to the print service by Qt as well, which would count what is left of them anew.
void keepPagesFromService(QPrinter& printer) {
  constexpr auto serviceOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);  // names and values in turn
  QStringList options = printer.printEngine()->property(serviceOptions).toStringList();
  const qsizetype place = options.indexOf(u"page-ranges"_s);
  if (place < 0) return;
  options.remove(place, 2);
  printer.printEngine()->setProperty(serviceOptions, options);
}

}  // namespace

PreviewWindow::PreviewWindow(QWidget* owner, std::shared_ptr<const PagedDocument> document, PreviewRequest request)
    : QDialog(owner),
      document_(std::move(document)),
      request_(std::move(request)),
      thumbs_(new PageThumbs(*document_, this)),
      view_(new PageView(*document_, this)),
      scroll_(new QScrollArea(this)) {
  setWindowTitle(request_.caption);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  buildToolBar();
  column->addWidget(toolBar_);
  scroll_->setAlignment(Qt::AlignCenter);
  scroll_->setBackgroundRole(QPalette::Mid);
  scroll_->setWidget(view_);
  scroll_->setFrameShape(QFrame::NoFrame);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(thumbs_);
  row->addWidget(scroll_, 1);
  column->addLayout(row, 1);
  thumbs_->setVisible(document_->pageCount() > 1);
  connectGuarded(thumbs_, &PageThumbs::pageChosen, this, [this](int page) { goTo(page); });
  const QSize room = screen()->availableSize();
  resize(std::min(1180, room.width() - 40), std::min(760, room.height() - 80));
  goTo(0);
  scroll_->setFocus();
}

PreviewWindow::~PreviewWindow() = default;

void PreviewWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(this, [&] {
    if (event->spontaneous()) return;
    layout()->activate();
    const QSizeF page = document_->pageSize(page_);
    page.width() > page.height() ? fitWidth() : fitPage();
  });
}

QAction* PreviewWindow::addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key,
                                   std::function<void()> work) {
  auto* action = new QAction(QIcon::fromTheme(icon), caption, this);
  action->setObjectName(name);
  action->setShortcut(key);
  action->setToolTip(key.isEmpty() ? caption : u"%1 (%2)"_s.arg(caption, key.toString(QKeySequence::NativeText)));
  connectGuarded(action, &QAction::triggered, this, std::move(work));
  addAction(action);
  auto* button = new QToolButton(toolBar_);
  button->setDefaultAction(action);
  button->setObjectName(name + u"_button"_s);
  button->setAccessibleName(caption);
  button->setAutoRaise(true);
  button->setIconSize(QSize(22, 22));
  button->setFocusPolicy(Qt::TabFocus);
  toolBar_->layout()->addWidget(button);
  return action;
}

void PreviewWindow::buildToolBar() {
  toolBar_ = new QWidget(this);
  auto* row = new WrapLayout(toolBar_, 6);
  row->setContentsMargins(6, 4, 6, 4);
  const auto withCaption = [this](QAction* action) {
    auto* button = toolBar_->findChild<QToolButton*>(action->objectName() + u"_button"_s);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
  };
  withCaption(addCommand(u"print"_s, u"Yazdır"_s, u"document-print"_s, QKeySequence(u"Ctrl+P"_s), [this] { print(); }));
  withCaption(addCommand(u"pdf"_s, u"PDF olarak kaydet"_s, u"document-save-as"_s, QKeySequence(u"Ctrl+S"_s), [this] { savePdf(); }));
  addCommand(u"offset"_s, u"Yazıcı kayması"_s, u"transform-move"_s, QKeySequence(u"Ctrl+K"_s), [this] { moveOnPaper(); });
  if (request_.exportToExcel)
    withCaption(addCommand(u"excel"_s, u"Excel`e Aktar"_s, u"x-office-spreadsheet"_s, QKeySequence(u"Ctrl+E"_s), [this] {
      request_.exportToExcel(this);
    }))->setIconSize(QSize(32, 32));
  row->addGap(12);
  addCommand(u"first"_s, u"İlk sayfa"_s, u"go-first"_s, QKeySequence(u"Ctrl+Home"_s), [this] { goTo(0); });
  addCommand(u"previous"_s, u"Önceki sayfa"_s, u"go-previous"_s, QKeySequence(Qt::Key_PageUp), [this] { goTo(page_ - 1); });
  pageBox_ = new QSpinBox(toolBar_);
  pageBox_->setRange(1, document_->pageCount());
  pageBox_->setAccessibleName(u"Sayfa numarası"_s);
  pageBox_->setKeyboardTracking(false);
  connectGuarded(pageBox_, &QSpinBox::valueChanged, this, [this](int number) { goTo(number - 1); });
  row->addWidget(pageBox_);
  row->addWidget(new QLabel(u"/ %1"_s.arg(document_->pageCount()), toolBar_));
  addCommand(u"next"_s, u"Sonraki sayfa"_s, u"go-next"_s, QKeySequence(Qt::Key_PageDown), [this] { goTo(page_ + 1); });
  addCommand(u"last"_s, u"Son sayfa"_s, u"go-last"_s, QKeySequence(u"Ctrl+End"_s), [this] { goTo(document_->pageCount() - 1); });
  row->addGap(12);
  addCommand(u"smaller"_s, u"Uzaklaştır"_s, u"zoom-out"_s, QKeySequence(u"Ctrl+-"_s), [this] { zoomTo(view_->zoom() / zoomStep); });
  zoomText_ = new QLabel(toolBar_);
  zoomText_->setAlignment(Qt::AlignCenter);
  zoomText_->setMinimumWidth(zoomText_->fontMetrics().horizontalAdvance(u"%000"_s));
  row->addWidget(zoomText_);
  addCommand(u"larger"_s, u"Yakınlaştır"_s, u"zoom-in"_s, QKeySequence(u"Ctrl++"_s), [this] { zoomTo(view_->zoom() * zoomStep); });
  addCommand(u"width"_s, u"Genişliğe sığdır"_s, u"zoom-fit-width"_s, QKeySequence(u"Ctrl+1"_s), [this] { fitWidth(); });
  addCommand(u"whole"_s, u"Sayfayı sığdır"_s, u"view-pages-single"_s, QKeySequence(u"Ctrl+0"_s), [this] { fitPage(); });
  addCommand(u"overview"_s, u"Sayfa resimleri"_s, u"view-list-icons"_s, QKeySequence(u"Ctrl+T"_s), [this] {
    thumbs_->setVisible(!thumbs_->isVisible());
  });
  row->addGap(12);
  buildSearch();
  withCaption(addCommand(u"close"_s, u"Kapat"_s, u"window-close"_s, {}, [this] { reject(); }));
}

void PreviewWindow::buildSearch() {
  searchBox_ = new QLineEdit(toolBar_);
  searchBox_->setObjectName(u"search"_s);
  searchBox_->setAccessibleName(u"Sayfalarda ara"_s);
  searchBox_->setPlaceholderText(u"Ara (Ctrl+F)"_s);
  searchBox_->setClearButtonEnabled(true);
  searchBox_->setMinimumWidth(150);
  searchBox_->setMaximumWidth(220);
  toolBar_->layout()->addWidget(searchBox_);
  searchText_ = new QLabel(toolBar_);
  toolBar_->layout()->addWidget(searchText_);
  connectGuarded(searchBox_, &QLineEdit::returnPressed, this, [this] { findWord(searchBox_->text()); });
  addCommand(u"find_next"_s, u"Sonrakini bul"_s, u"go-down-search"_s, QKeySequence(Qt::Key_F3), [this] { findWord(searchBox_->text()); });
  addCommand(u"find_previous"_s, u"Öncekini bul"_s, u"go-up-search"_s, QKeySequence(u"Shift+F3"_s), [this] {
    findWord(searchBox_->text(), -1);
  });
  auto* find = new QAction(this);
  find->setShortcut(QKeySequence(u"Ctrl+F"_s));
  connectGuarded(find, &QAction::triggered, this, [this] {
    searchBox_->setFocus(Qt::ShortcutFocusReason);
    searchBox_->selectAll();
  });
  addAction(find);
}

void PreviewWindow::goTo(int page) {
  page_ = std::clamp(page, 0, document_->pageCount() - 1);
  hit_ = -1;
  const QSignalBlocker quiet(pageBox_);
  pageBox_->setValue(page_ + 1);
  thumbs_->setPage(page_);
  view_->show(page_, view_->zoom());
  scroll_->verticalScrollBar()->setValue(0);
}

bool PreviewWindow::findWord(const QString& word, int step) {
  if (word != word_) hit_ = -1;
  word_ = word;
  searchText_->clear();
  const int pages = document_->pageCount();
  // The page of the last hit is looked at twice: behind the hit, and at the end before it.
  for (int turn = 0; turn <= pages; ++turn) {
    const int page = ((page_ + step * turn) % pages + pages) % pages;
    const auto places = document_->find(page, word);
    if (places.empty()) continue;
    const int last = int(places.size()) - 1;
    const int hit = turn > 0 || hit_ < 0 ? (step > 0 ? 0 : last) : hit_ + step;
    if (hit < 0 || hit > last) continue;
    if (page != page_) goTo(page);
    showHit(places, hit);
    return true;
  }
  view_->mark({}, -1);
  if (!word.isEmpty()) searchText_->setText(u"bulunamadı"_s);
  return false;
}

void PreviewWindow::showHit(const std::vector<QRectF>& places, int hit) {
  hit_ = hit;
  view_->mark(places, hit);
  const QPoint middle = view_->placeOf(hit).center();
  scroll_->ensureVisible(middle.x(), middle.y(), 80, 80);
}

void PreviewWindow::zoomTo(double zoom) {
  view_->show(page_, std::clamp(zoom, leastZoom, mostZoom));
  zoomText_->setText(u"%%1"_s.arg(qRound(view_->zoom() * 100)));
}

void PreviewWindow::fitWidth() {
  const QSizeF page = PageView::outerSize(document_->pageSize(page_), 1);
  const QSizeF around = PageView::outerSize(QSizeF(0, 0), 1);
  const double room = scroll_->width() - around.width() - scroll_->verticalScrollBar()->sizeHint().width();
  zoomTo(room / (page.width() - around.width()));
}

void PreviewWindow::fitPage() {
  const QSizeF around = PageView::outerSize(QSizeF(0, 0), 1);
  const QSizeF page = PageView::outerSize(document_->pageSize(page_), 1) - around;
  const QSizeF room = QSizeF(scroll_->size()) - around;
  zoomTo(std::min(room.width() / page.width(), room.height() / page.height()));
}

bool PreviewWindow::withProgress(int pages, const std::function<bool(const PageProgress&)>& work) {
  QProgressDialog progress(u"Sayfalar hazırlanıyor..."_s, u"Durdur"_s, 0, pages, this);
  progress.setWindowTitle(windowTitle());
  progress.setWindowModality(Qt::WindowModal);
  int done = 0;
  return work([&](int) {
    progress.setValue(done++);
    return !progress.wasCanceled();
  });
}

void PreviewWindow::tell(const QString& instruction, const QString& text) {
  runTaskDialog(this, {.title = windowTitle(),
                       .instruction = instruction,
                       .text = text,
                       .icon = TaskIcon::Warning,
                       .buttons = {{closeButton, u"Kapat"_s}}});
}

bool PreviewWindow::hasPrinter() {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) return true;
  tell(u"Yazıcı bulunamadı"_s, u"Bu bilgisayarda tanımlı bir yazıcı yok. Sayfaları PDF olarak kaydedebilirsiniz."_s);
  return false;
}

void PreviewWindow::moveOnPaper() {
  if (!hasPrinter()) return;
  OffsetDialog dialog(this, QPrinterInfo::availablePrinterNames(),
                      request_.printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : request_.printer);
  dialog.exec();
}

void PreviewWindow::print() {
  if (!hasPrinter()) return;
  QPrinter printer(QPrinter::HighResolution);
  if (!request_.printer.isEmpty()) printer.setPrinterName(request_.printer);
  printer.setDocName(request_.documentName);
  printer.setCopyCount(request_.copies);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(u"Yazdır"_s);
  dialog.setMinMax(1, document_->pageCount());
  dialog.setFromTo(1, document_->pageCount());
  if (dialog.exec() != QDialog::Accepted) return;
  PageList pages = allPages(*document_);
  if (printer.printRange() == QPrinter::PageRange)
    std::erase_if(pages, [ranges = printer.pageRanges()](int page) { return !ranges.contains(page + 1); });
  keepPagesFromService(printer);
  if (pages.empty()) return tell(u"Yazdırılamadı"_s, u"Seçilen sayfalar bu belgede yok."_s);
  try {
    withProgress(int(pages.size()), [&](const PageProgress& progress) { return printPagesOn(printer, *document_, pages, progress); });
  } catch (const EInOutError& error) {
    tell(u"Yazdırılamadı"_s, error.message());
  }
}

void PreviewWindow::writePdf(const QString& file) {
  withProgress(document_->pageCount(), [&](const PageProgress& progress) {
    ::writePdf(*document_, file, request_.documentName, progress);
    return true;
  });
}

void PreviewWindow::savePdf() {
  const QString file = askSaveFile(this, u"PDF olarak kaydet"_s, u"PDF (*.pdf)"_s, u"pdf"_s, request_.documentName);
  if (file.isEmpty()) return;
  try {
    writePdf(file);
  } catch (const EInOutError& error) {
    runTaskDialog(this, {.title = windowTitle(),
                         .instruction = u"PDF kaydedilemedi"_s,
                         .text = error.message(),
                         .icon = TaskIcon::Error,
                         .buttons = {{closeButton, u"Kapat"_s}}});
  }
}

void showPreview(QWidget* owner, std::shared_ptr<const PagedDocument> document, const PreviewRequest& request) {
  PreviewWindow preview(owner, std::move(document), request);
  preview.exec();
}
