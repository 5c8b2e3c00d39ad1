#include "toolkit/shell/child_windows.h"

#include "base/guard.h"
#include "toolkit/shell/child_tab_strip.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr int CascadeStep = 26;  ///< from one new window to the next, in device-independent pixels
}  // namespace

ChildWindow::ChildWindow(QWidget* content) {
  setWidget(content);
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowIcon(content->windowIcon());
}

void ChildWindow::closeEvent(QCloseEvent* event) {
  QMdiSubWindow::closeEvent(event);
  if (event->isAccepted()) Q_EMIT closed();
}

ClientArea::ClientArea(QWidget* parent) : QMdiArea(parent) {
  setBackground(Qt::white);
  setFrameShape(QFrame::NoFrame);
  setActivationOrder(QMdiArea::CreationOrder);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void ClientArea::setPicture(const QPixmap& picture) {
  picture_ = picture;
  viewport()->update();
}

void ClientArea::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QRect room = viewport()->rect();
  painter.fillRect(room, Qt::white);
  if (picture_.isNull()) return;
  QSizeF size = picture_.deviceIndependentSize();
  if (size.width() > room.width() || size.height() > room.height()) size.scale(room.size(), Qt::KeepAspectRatio);
  QRectF place(QPointF(), size);
  place.moveCenter(QRectF(room).center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(place, picture_, picture_.rect());
}

ChildWindows::ChildWindows(QWidget* parent)
    : QWidget(parent),
      area_(new ClientArea(this)),
      strip_(new ChildTabStrip(this)),
      redrawLock_(area_->viewport()) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(area_, 1);
  column->addWidget(strip_);
  strip_->hide();
  setFocusProxy(area_);
  connectGuarded(strip_, &ChildTabStrip::tabChosen, this, [this](int index) { activate(windows_[index]); });
  connectGuarded(strip_, &ChildTabStrip::closeRequested, this, [this](int index) { windows_[index]->close(); });
  connectGuarded(strip_, &ChildTabStrip::closeOthersRequested, this, [this](int index) { closeAllBut(windows_[index]); });
  connectGuarded(strip_, &ChildTabStrip::closeAllRequested, this, [this] { closeAll(); });
  connectGuarded(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
    const qsizetype index = windows_.indexOf(qobject_cast<ChildWindow*>(window));
    if (index >= 0) strip_->setCurrentIndex(static_cast<int>(index));
  });
}

// The windows go with the base class, after the list of them: what they tell then finds nobody.
ChildWindows::~ChildWindows() {
  area_->disconnect(this);
  for (ChildWindow* window : windows_) window->disconnect(this);
}

QMdiSubWindow* ChildWindows::add(QWidget* content) {
  if (ChildWindow* present = windowOf(content)) return present;
  const bool fillsArea = content->isMaximized();
  auto* window = new ChildWindow(content);
  windows_.append(window);
  strip_->addTab(content->windowTitle());
  strip_->show();
  layout()->activate();  // the strip takes its room before the window asks how much there is
  connectGuarded(window, &QWidget::windowTitleChanged, this, [this, window](const QString& caption) {
    strip_->setCaption(static_cast<int>(windows_.indexOf(window)), caption);
  });
  connectGuarded(window, &ChildWindow::closed, this, [this, window] { forget(window); });
  area_->addSubWindow(window);
  const QSize spare = area_->viewport()->size() - window->sizeHint();
  if (fillsArea || spare.width() < 0 || spare.height() < 0) {
    window->showMaximized();
  } else {
    const int offset = CascadeStep * (count() - 1);
    window->setGeometry(QRect({offset % (spare.width() + 1), offset % (spare.height() + 1)}, window->sizeHint()));
    window->show();
  }
  Q_EMIT countChanged(count());
  return window;
}

void ChildWindows::forget(ChildWindow* window) {
  const qsizetype index = windows_.indexOf(window);
  if (index < 0) return;
  windows_.removeAt(index);
  strip_->removeTab(static_cast<int>(index));
  strip_->setVisible(!windows_.isEmpty());
  if (windows_.isEmpty()) area_->setFocus(Qt::OtherFocusReason);
  Q_EMIT countChanged(count());
}

ChildWindow* ChildWindows::windowOf(QWidget* content) const {
  const auto found = std::ranges::find(windows_, content, [](const ChildWindow* window) { return window->widget(); });
  return found == windows_.end() ? nullptr : *found;
}

void ChildWindows::setCaption(QWidget* content, const QString& caption) {
  content->setWindowTitle(caption);
  if (ChildWindow* window = windowOf(content)) window->setWindowTitle(caption);
}

QList<QWidget*> ChildWindows::contents() const {
  QList<QWidget*> contents;
  for (const ChildWindow* window : windows_) contents.append(window->widget());
  return contents;
}

bool ChildWindows::closeAll() { return closeAllBut(nullptr); }

bool ChildWindows::closeAllBut(const ChildWindow* kept) {
  const QList<ChildWindow*> windows = windows_;
  return std::ranges::all_of(windows, [kept](ChildWindow* window) { return window == kept || window->close(); });
}

/// A window that changes its state becomes the active one and moves its keyboard to the next control. Boxes pass over the
/// reason that is given here: as with a menu, they do not count as left.
void ChildWindows::keepingKeyboard(const std::function<void()>& work) {
  const QPointer<ChildWindow> active = qobject_cast<ChildWindow*>(area_->activeSubWindow());
  for (ChildWindow* window : windows_)
    if (!window->isMinimized()) window->keyboard = window->widget()->focusWidget();
  const QWidget* focus = QApplication::focusWidget();
  const bool isHere = focus == area_ || area_->isAncestorOf(focus);
  if (isHere) area_->setFocus(Qt::MenuBarFocusReason);
  work();
  if (!active) return;
  area_->setActiveSubWindow(active);
  if (!isHere) return;
  QWidget* target = !active->isMinimized() && active->keyboard ? active->keyboard.get() : area_;
  target->setFocus(Qt::MenuBarFocusReason);
}

void ChildWindows::maximizeAll() {
  keepingKeyboard([this] {
    for (ChildWindow* window : windows_)
      if (!window->isMaximized()) window->showMaximized();
  });
}

void ChildWindows::restoreAll() {
  keepingKeyboard([this] {
    for (ChildWindow* window : windows_)
      if (window->isMaximized() || window->isMinimized()) window->showNormal();
  });
}

void ChildWindows::minimizeAll() {
  keepingKeyboard([this] {
    for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) (*window)->showMinimized();
  });
}

void ChildWindows::cascade() { area_->cascadeSubWindows(); }

void ChildWindows::tileRows() { tile(Qt::Vertical); }

void ChildWindows::tileColumns() { tile(Qt::Horizontal); }

/// Fills the client area with the windows that are not minimised, stacked in the direction; lines grow with their number.
void ChildWindows::tile(Qt::Orientation direction) {
  QList<ChildWindow*> tiled;
  for (ChildWindow* window : windows_)
    if (!window->isMinimized()) tiled.append(window);
  if (tiled.isEmpty()) return;
  const QSize room = area_->viewport()->size();
  const int total = static_cast<int>(tiled.size());
  const int lines = static_cast<int>(std::sqrt(total));
  for (int line = 0, first = 0; line < lines; ++line) {
    const int inLine = total / lines + (line >= lines - total % lines ? 1 : 0);
    for (int i = 0; i < inLine; ++i) {
      const auto part = [](int whole, int index, int of) { return whole * index / of; };
      QRect place(QPoint(part(room.width(), line, lines), part(room.height(), i, inLine)),
                  QPoint(part(room.width(), line + 1, lines) - 1, part(room.height(), i + 1, inLine) - 1));
      if (direction == Qt::Horizontal)
        place = QRect(QPoint(part(room.width(), i, inLine), part(room.height(), line, lines)),
                      QPoint(part(room.width(), i + 1, inLine) - 1, part(room.height(), line + 1, lines) - 1));
      tiled[first + i]->showNormal();
      tiled[first + i]->setGeometry(place);
    }
    first += inLine;
  }
}

void ChildWindows::activate(ChildWindow* window) {
  const bool comesBack = window->isMinimized();
  if (comesBack) window->showNormal();
  area_->setActiveSubWindow(window);
  if (comesBack && window->keyboard) window->keyboard->setFocus(Qt::MenuBarFocusReason);
}

void ChildWindows::activateNext() { step(1); }

void ChildWindows::activatePrevious() { step(-1); }

void ChildWindows::step(int by) {
  if (windows_.isEmpty()) return;
  const qsizetype now = windows_.indexOf(qobject_cast<ChildWindow*>(area_->activeSubWindow()));
  activate(windows_[(now + by + windows_.size()) % windows_.size()]);
}
