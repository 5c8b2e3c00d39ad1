#include "toolkit/edits/drop_down.h"

#include "base/guard.h"
#include "toolkit/edits/edit_box.h"

#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// Sizes that the user has drawn drop-downs to, by the name of their box.
QHash<QString, QSize>& drawnSizes() {
  static QHash<QString, QSize> sizes;
  return sizes;
}

/// The corner by which a drop-down is drawn larger. QSizeGrip asks the window manager, which does not manage pop-ups.
class DropDownGrip : public QWidget {
 public:
  explicit DropDownGrip(DropDown* window) : QWidget(window), window_(window) {
    setFixedSize(14, 12);
    setCursor(Qt::SizeFDiagCursor);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    from_ = event->globalPosition().toPoint();
    sizeAtPress_ = window_->size();
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const QPoint way = event->globalPosition().toPoint() - from_;
    guarded(this, [&] { window_->drawTo(sizeAtPress_ + QSize(way.x(), way.y())); });
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (int gap = 3; gap <= 9; gap += 3) painter.drawLine(width() - gap, height() - 1, width() - 1, height() - gap);
  }

 private:
  DropDown* window_;
  QPoint from_;
  QSize sizeAtPress_;
};

}  // namespace

void DropDown::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid).darker(115));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

DropDown::DropDown(EditBox* box, QWidget* content, bool sizeable)
    : QFrame(box, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus), box_(box), sizeable_(sizeable) {
  setAttribute(Qt::WA_WindowPropagation);
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(content);
  if (sizeable) column->addWidget(new DropDownGrip(this), 0, Qt::AlignRight);
}

void DropDown::openUnder(QSize size) {
  const QRect screen = box_->screen()->availableGeometry();
  QSize whole = drawnSizes().value(box_->objectName(), size + QSize(4, sizeable_ ? 16 : 4));
  whole = whole.expandedTo(QSize(box_->width(), 0)).boundedTo(screen.size());
  boxPlace_ = box_->mapToGlobal(QPoint());
  QPoint place = boxPlace_ + QPoint(0, box_->height());
  if (place.y() + whole.height() > screen.bottom()) {
    const int above = boxPlace_.y() - screen.top();
    const int below = screen.bottom() - place.y();
    if (above > below) {
      whole.setHeight(std::min(whole.height(), above));
      place.setY(boxPlace_.y() - whole.height());
    } else {
      whole.setHeight(below);
    }
  }
  place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - whole.width())));
  setGeometry(QRect(place, whole));
  show();
}

bool DropDown::worksWith(const QKeyEvent& key, std::initializer_list<Qt::Key> also) {
  const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
      return modifiers == Qt::NoModifier || modifiers == Qt::AltModifier;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
      return modifiers == Qt::NoModifier;
    default:
      return modifiers == Qt::NoModifier && std::ranges::find(also, key.key()) != also.end();
  }
}

void DropDown::drawTo(QSize size) {
  resize(size.expandedTo(QSize(120, 80)).boundedTo(screen()->availableGeometry().size()));
  drawnSizes().insert(box_->objectName(), this->size());
}

void DropDown::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  qApp->installEventFilter(this);
}

void DropDown::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  qApp->removeEventFilter(this);
}

/// While it is open, it looks at what the program gets.
bool DropDown::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  bool taken = false;
  if (widget == nullptr) return taken;
  guarded(this, [&] {
    switch (event->type()) {
      case QEvent::ShortcutOverride:
      case QEvent::KeyPress:
        if (watched == box_->line()) taken = keyCame(*static_cast<QKeyEvent*>(event));
        return;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::NonClientAreaMouseButtonPress:
        if (!isOwn(*widget)) Q_EMIT dismissed();
        return;
      case QEvent::Wheel:
        if (!isOwn(*widget)) hide();
        return;
      case QEvent::WindowDeactivate:
      case QEvent::WindowBlocked:
        if (watched == box_->window()) hide();
        return;
      case QEvent::Hide:
        if (watched == box_) hide();
        return;
      case QEvent::Move:
        if (widget->isAncestorOf(box_) && box_->mapToGlobal(QPoint()) != boxPlace_) hide();
        return;
      default:
        return;
    }
  });
  return taken;
}

/// A key on its way to the box; true when it has come to its end.
bool DropDown::keyCame(QKeyEvent& key) {
  constexpr int modifierKeys[] = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt,      Qt::Key_AltGr,
                                  Qt::Key_Meta,  Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock};
  if (std::ranges::find(modifierKeys, key.key()) != std::end(modifierKeys)) return false;
  // What stands in the list and is typed into, such as the calendar's year.
  if (QWidget* inner = focusWidget(); inner != nullptr && inner->isVisible() && key.key() != Qt::Key_Escape) {
    key.accept();
    if (key.type() == QEvent::KeyPress) {
      QKeyEvent copy(QEvent::KeyPress, key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
      QCoreApplication::sendEvent(inner, &copy);
    }
    return true;
  }
  if (!box_->keepsKey(key)) Q_EMIT dismissed();
  return false;
}

/// Belongs to the list, to a menu in it, or to what opens and closes it.
bool DropDown::isOwn(const QWidget& widget) const {
  for (const QWidget* each = &widget; each != nullptr; each = each->parentWidget())
    if (each == this || each == box_->line() || each == box_->button(0)) return true;
  return false;
}
