#include "toolkit/grid/grid_preview.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "base/whole_file.h"
#include "toolkit/edits/task_dialog.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
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

constexpr int pdfDotsPerInch = 300;
constexpr double leastZoom = 0.25;
constexpr double mostZoom = 4;
constexpr double zoomStep = 1.25;
constexpr int pageGap = 16;
constexpr int closeButton = 1;

}  // namespace

/// One page on the screen.
class PagePicture : public QWidget {
 public:
  PagePicture(const GridPages& pages, QWidget* parent) : QWidget(parent), pages_(pages) { setAccessibleName(u"Sayfa"_s); }

  double zoom() const { return zoom_; }
  void show(int page, double zoom) {
    page_ = page;
    zoom_ = zoom;
    const QSizeF size = GridPages::paperSize() * zoom;
    resize(int(size.width()) + 2 * pageGap, int(size.height()) + 2 * pageGap);
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    guarded(this, [&] {
      QPainter painter(this);
      painter.setRenderHint(QPainter::TextAntialiasing);
      painter.fillRect(rect(), palette().color(QPalette::Mid));
      painter.translate(pageGap, pageGap);
      painter.scale(zoom_, zoom_);
      pages_.paint(painter, page_);
    });
  }

 private:
  const GridPages& pages_;
  int page_ = 0;
  double zoom_ = 1;
};

GridPreview::GridPreview(QWidget* owner, std::unique_ptr<TableContent> content, GridPreviewRequest request)
    : QDialog(owner),
      content_(std::move(content)),
      request_(std::move(request)),
      pages_(*content_, request_.texts, QApplication::font()),
      picture_(new PagePicture(pages_, this)),
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
  scroll_->setWidget(picture_);
  scroll_->setFrameShape(QFrame::NoFrame);
  column->addWidget(scroll_, 1);
  const QSize room = screen()->availableSize();
  resize(std::min(1180, room.width() - 40), std::min(760, room.height() - 80));
  goTo(0);
  scroll_->setFocus();
}

void GridPreview::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(this, [&] {
    if (!event->spontaneous()) fitWidth();
  });
}

GridPreview::~GridPreview() = default;

QAction* GridPreview::addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key,
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

void GridPreview::buildToolBar() {
  toolBar_ = new QWidget(this);
  auto* row = new QHBoxLayout(toolBar_);
  row->setContentsMargins(6, 4, 6, 4);
  const auto withCaption = [this](QAction* action) {
    auto* button = toolBar_->findChild<QToolButton*>(action->objectName() + u"_button"_s);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
  };
  withCaption(addCommand(u"print"_s, u"Yazdır"_s, u"document-print"_s, QKeySequence(u"Ctrl+P"_s), [this] { print(); }));
  withCaption(addCommand(u"pdf"_s, u"PDF olarak kaydet"_s, u"document-save-as"_s, QKeySequence(u"Ctrl+S"_s), [this] { savePdf(); }));
  if (request_.exportToExcel)
    withCaption(addCommand(u"excel"_s, u"Excel`e Aktar"_s, u"x-office-spreadsheet"_s, QKeySequence(u"Ctrl+E"_s), [this] {
      request_.exportToExcel(this);
    }))->setIconSize(QSize(32, 32));
  row->addSpacing(12);
  addCommand(u"first"_s, u"İlk sayfa"_s, u"go-first"_s, QKeySequence(u"Ctrl+Home"_s), [this] { goTo(0); });
  addCommand(u"previous"_s, u"Önceki sayfa"_s, u"go-previous"_s, QKeySequence(Qt::Key_PageUp), [this] { goTo(page_ - 1); });
  pageBox_ = new QSpinBox(toolBar_);
  pageBox_->setRange(1, pages_.pageCount());
  pageBox_->setAccessibleName(u"Sayfa numarası"_s);
  pageBox_->setKeyboardTracking(false);
  connectGuarded(pageBox_, &QSpinBox::valueChanged, this, [this](int number) { goTo(number - 1); });
  row->addWidget(pageBox_);
  row->addWidget(new QLabel(u"/ %1"_s.arg(pages_.pageCount()), toolBar_));
  addCommand(u"next"_s, u"Sonraki sayfa"_s, u"go-next"_s, QKeySequence(Qt::Key_PageDown), [this] { goTo(page_ + 1); });
  addCommand(u"last"_s, u"Son sayfa"_s, u"go-last"_s, QKeySequence(u"Ctrl+End"_s), [this] { goTo(pages_.pageCount() - 1); });
  row->addSpacing(12);
  addCommand(u"smaller"_s, u"Uzaklaştır"_s, u"zoom-out"_s, QKeySequence(u"Ctrl+-"_s), [this] { zoomTo(picture_->zoom() / zoomStep); });
  zoomText_ = new QLabel(toolBar_);
  zoomText_->setAlignment(Qt::AlignCenter);
  zoomText_->setMinimumWidth(zoomText_->fontMetrics().horizontalAdvance(u"%000"_s));
  row->addWidget(zoomText_);
  addCommand(u"larger"_s, u"Yakınlaştır"_s, u"zoom-in"_s, QKeySequence(u"Ctrl++"_s), [this] { zoomTo(picture_->zoom() * zoomStep); });
  addCommand(u"width"_s, u"Genişliğe sığdır"_s, u"zoom-fit-width"_s, QKeySequence(u"Ctrl+1"_s), [this] { fitWidth(); });
  addCommand(u"whole"_s, u"Sayfayı sığdır"_s, u"view-pages-single"_s, QKeySequence(u"Ctrl+0"_s), [this] { fitPage(); });
  row->addStretch(1);
  withCaption(addCommand(u"close"_s, u"Kapat"_s, u"window-close"_s, {}, [this] { reject(); }));
}

void GridPreview::goTo(int page) {
  page_ = std::clamp(page, 0, pages_.pageCount() - 1);
  const QSignalBlocker quiet(pageBox_);
  pageBox_->setValue(page_ + 1);
  picture_->show(page_, picture_->zoom());
  scroll_->verticalScrollBar()->setValue(0);
}

void GridPreview::zoomTo(double zoom) {
  picture_->show(page_, std::clamp(zoom, leastZoom, mostZoom));
  zoomText_->setText(u"%%1"_s.arg(qRound(picture_->zoom() * 100)));
}

void GridPreview::fitWidth() {
  zoomTo((width() - 2 * pageGap - scroll_->verticalScrollBar()->sizeHint().width()) / GridPages::paperSize().width());
}

void GridPreview::fitPage() {
  const QSizeF paper = GridPages::paperSize();
  const QSize room = scroll_->viewport()->size() - QSize(2 * pageGap, 2 * pageGap);
  zoomTo(std::min(room.width() / paper.width(), room.height() / paper.height()));
}

bool GridPreview::paintAll(QPagedPaintDevice& device, int first, int last) {
  QProgressDialog progress(u"Sayfalar hazırlanıyor..."_s, u"Durdur"_s, first, last + 1, this);
  progress.setWindowTitle(windowTitle());
  progress.setWindowModality(Qt::WindowModal);
  QPainter painter;
  if (!painter.begin(&device)) throw EInOutError(u"Yazdırma başlatılamadı."_s);
  for (int page = first; page <= last; ++page) {
    progress.setValue(page);
    if (progress.wasCanceled()) return false;
    if (page > first && !device.newPage()) throw EInOutError(u"%1. sayfa yazılamadı."_s.arg(page + 1));
    painter.save();
    const QSizeF paper = GridPages::paperSize();
    const double scale = std::min(device.width() / paper.width(), device.height() / paper.height());
    painter.scale(scale, scale);
    pages_.paint(painter, page);
    painter.restore();
  }
  if (!painter.end()) throw EInOutError(u"Yazdırma tamamlanamadı."_s);
  return true;
}

void GridPreview::print() {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    runTaskDialog(this, {.title = windowTitle(),
                         .instruction = u"Yazıcı bulunamadı"_s,
                         .text = u"Bu bilgisayarda tanımlı bir yazıcı yok. Listeyi PDF olarak kaydedebilirsiniz."_s,
                         .icon = TaskIcon::Warning,
                         .buttons = {{closeButton, u"Kapat"_s}}});
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(request_.documentName);
  printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(), QPageLayout::Millimeter));
  printer.setFullPage(true);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(u"Yazdır"_s);
  dialog.setMinMax(1, pages_.pageCount());
  if (dialog.exec() != QDialog::Accepted) return;
  const bool part = printer.printRange() == QPrinter::PageRange;
  const int first = part ? std::max(1, printer.fromPage()) - 1 : 0;
  const int last = part ? std::min(pages_.pageCount(), printer.toPage()) - 1 : pages_.pageCount() - 1;
  if (!paintAll(printer, first, last)) printer.abort();
}

void GridPreview::writePdf(const QString& file) {
  WholeFile out(file);
  {
    QPdfWriter pdf(&out);
    pdf.setTitle(request_.documentName);
    pdf.setResolution(pdfDotsPerInch);
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(), QPageLayout::Millimeter));
    if (!paintAll(pdf, 0, pages_.pageCount() - 1)) return;
  }
  out.commit();
}

void GridPreview::savePdf() {
  const QString file = askSaveFile(this, u"PDF olarak kaydet"_s, u"PDF (*.pdf)"_s, u"pdf"_s);
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

void showGridPreview(QWidget* owner, std::unique_ptr<TableContent> content, const GridPreviewRequest& request) {
  GridPreview preview(owner, std::move(content), request);
  preview.exec();
}
