#include "toolkit/edits/balloon.h"

#include "base/guard.h"
#include "toolkit/edits/edit_control.h"

#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

namespace {

constexpr int distanceInEdit = 95;
constexpr int tipHeight = 8;
constexpr int tipPlace = 16;
constexpr int widest = 380;

/// The window of a balloon: a rounded field with a tip that points at the anchor, upward or downward.
class Bubble : public QWidget {
 public:
  Bubble(QWidget* owner, const QString& text, QPoint anchor, const QRect& controlOnScreen, bool atEdit)
      : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint), label_(new QLabel(text, this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(text);
    label_->setTextFormat(Qt::PlainText);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette ink = label_->palette();
    ink.setColor(QPalette::WindowText, QColor(0x30, 0x28, 0x00));
    label_->setPalette(ink);
    QSize size = label_->sizeHint();
    if (size.width() > widest) {
      label_->setWordWrap(true);
      size = QSize(widest, label_->heightForWidth(widest));
    }
    const QRect screen = owner->screen()->availableGeometry();
    const QSize whole = size + QSize(20, 12 + tipHeight);
    below_ = anchor.y() + whole.height() <= screen.bottom();
    const int top = below_ ? anchor.y() : (atEdit ? controlOnScreen.top() : anchor.y()) - whole.height();
    // At an edit the balloon's own left edge stands at the anchor, at a grid its tip does.
    const int wanted = atEdit ? anchor.x() : anchor.x() - tipPlace;
    const int left = std::clamp(wanted, screen.left(), std::max(screen.left(), screen.right() - whole.width()));
    setGeometry(QRect(QPoint(left, top), whole));
    label_->setGeometry(QRect(QPoint(10, (below_ ? tipHeight : 0) + 6), size));
    // Where no compositor runs, what the outline leaves free would be black.
    setMask(drawnPixels());
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0xB0, 0x95, 0x30));
    painter.setBrush(QColor(0xFF, 0xF8, 0xDC));
    painter.drawPath(outline());
  }
  void mousePressEvent(QMouseEvent*) override { hide(); }

 private:
  QRegion drawnPixels() const {
    QBitmap drawn(size());
    drawn.clear();
    QPainter painter(&drawn);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawPath(outline());
    painter.end();
    return QRegion(drawn);
  }

  QPainterPath outline() const {
    QRectF field = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    (below_ ? field.setTop(field.top() + tipHeight) : field.setBottom(field.bottom() - tipHeight));
    const qreal edge = below_ ? field.top() : field.bottom();
    QPainterPath body;
    body.addRoundedRect(field, 5, 5);
    QPainterPath tip;
    const qreal inside = edge + (below_ ? 1 : -1);  // so that nothing is drawn between the two
    tip.moveTo(tipPlace - 7, inside);
    tip.lineTo(tipPlace, below_ ? 0.5 : height() - 0.5);
    tip.lineTo(tipPlace + 7, inside);
    tip.closeSubpath();
    return body.united(tip);
  }

  QLabel* label_;
  bool below_ = true;
};

void bringIntoSight(QWidget* control) {
  for (QWidget* each = control->parentWidget(); each != nullptr; each = each->parentWidget())
    if (auto* area = qobject_cast<QScrollArea*>(each)) area->ensureWidgetVisible(control);
}

}  // namespace

Balloon::Balloon(QObject* parent) : QObject(parent) {
  pause_.setSingleShot(true);
  connectGuarded(&pause_, &QTimer::timeout, this, [this] { hide(); });
}

Balloon::~Balloon() { delete bubble_; }

QPoint Balloon::anchorOf(const QWidget* control) {
  const bool isEdit = dynamic_cast<const EditControl*>(control) != nullptr;
  return control->mapToGlobal(isEdit ? QPoint(distanceInEdit, control->height()) : control->rect().center());
}

bool Balloon::showAt(QWidget* control, const QString& text, int pauseMs) {
  if (isUp()) return false;
  bringIntoSight(control);
  const bool atEdit = dynamic_cast<EditControl*>(control) != nullptr;
  const QRect onScreen(control->mapToGlobal(QPoint()), control->size());
  pause_.start(pauseMs);
  bubble_ = new Bubble(control->window(), text, anchorOf(control), onScreen, atEdit);
  bubble_->show();
  QAccessibleEvent alert(bubble_.data(), QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  return true;
}

void Balloon::hide() {
  pause_.stop();
  if (bubble_) {
    bubble_->hide();
    bubble_->deleteLater();
    bubble_ = nullptr;
  }
}

QString Balloon::text() const { return bubble_ ? bubble_->accessibleName() : QString(); }

Balloon& refusalBalloon() {
  static QPointer<Balloon> shared;
  if (!shared) shared = new Balloon(qApp);
  return *shared;
}

void showRefusal(QWidget* box, const QString& text) {
  constexpr int readingMs = 4000;
  refusalBalloon().hide();
  refusalBalloon().showAt(box, text, readingMs);
}
