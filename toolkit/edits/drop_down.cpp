#include "toolkit/edits/drop_down.h"

#include "base/environment.h"
#include "base/guard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr quint64 reopenPauseMs = 200;

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

DropDown::DropDown(QWidget* box, QWidget* content, QWidget* keyTarget, bool sizeable)
    : QFrame(box, Qt::Popup | Qt::FramelessWindowHint), box_(box), content_(content), keyTarget_(keyTarget), sizeable_(sizeable) {
  setAttribute(Qt::WA_WindowPropagation);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(content);
  if (sizeable) column->addWidget(new DropDownGrip(this), 0, Qt::AlignRight);
  if (!keyTarget_) setFocusProxy(content);
}

void DropDown::openUnder(QSize size) {
  const QRect screen = box_->screen()->availableGeometry();
  QSize whole = drawnSizes().value(box_->objectName(), size + QSize(4, sizeable_ ? 16 : 4));
  whole = whole.expandedTo(QSize(box_->width(), 0)).boundedTo(screen.size());
  QPoint place = box_->mapToGlobal(QPoint(0, box_->height()));
  if (place.y() + whole.height() > screen.bottom()) {
    const int above = box_->mapToGlobal(QPoint()).y() - screen.top();
    const int below = screen.bottom() - place.y();
    if (above > below) {
      whole.setHeight(std::min(whole.height(), above));
      place.setY(box_->mapToGlobal(QPoint()).y() - whole.height());
    } else {
      whole.setHeight(below);
    }
  }
  place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - whole.width())));
  setGeometry(QRect(place, whole));
  if (isVisible()) return;
  show();
  if (!keyTarget_) content_->setFocus(Qt::PopupFocusReason);
}

void DropDown::drawTo(QSize size) {
  resize(size.expandedTo(QSize(120, 80)).boundedTo(screen()->availableGeometry().size()));
  drawnSizes().insert(box_->objectName(), this->size());
}

bool DropDown::hasJustClosed() const { return closedAt_ != 0 && environment().tickCount() - closedAt_ < reopenPauseMs; }

bool DropDown::event(QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  // While it is open, no command of the form takes a key away from it: neither here nor on the way to the box, which a
  // sent event would look for commands again.
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  if (keyTarget_ && isKey) {
    static_cast<QObject*>(keyTarget_)->event(event);
    return true;
  }
  return QFrame::event(event);
}

void DropDown::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  guarded(this, [&] {
    closedAt_ = environment().tickCount();
    Q_EMIT closed();
  });
}
