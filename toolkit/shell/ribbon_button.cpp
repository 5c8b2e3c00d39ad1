#include "toolkit/shell/ribbon_button.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int LargeIcon = 32;
constexpr int SmallIcon = 16;
constexpr int Padding = 6;
constexpr int LargeMinimumWidth = 60;
constexpr int ArrowWidth = 10;

void drawArrow(QPainter& painter, QPointF centre, const QColor& colour) {
  QPainterPath path(centre + QPointF(-3.5, -1.75));
  path.lineTo(centre + QPointF(0, 1.75));
  path.lineTo(centre + QPointF(3.5, -1.75));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.3));
  painter.drawPath(path);
  painter.restore();
}
}  // namespace

RibbonButton::RibbonButton(QAction* action, QWidget* parent) : QToolButton(parent) {
  setDefaultAction(action);
  setPopupMode(action->menu() ? InstantPopup : DelayedPopup);
  setAutoRaise(true);
  setFocusPolicy(Qt::TabFocus);
  setButtonSize(RibbonButtonSize::Large);
}

void RibbonButton::setButtonSize(RibbonButtonSize size) {
  size_ = size;
  const int icon = size == RibbonButtonSize::Large ? LargeIcon : SmallIcon;
  setIconSize({icon, icon});
  updateGeometry();
  update();
}

/// The caption on one or two lines, broken at the blank that makes the widest line narrowest.
QStringList RibbonButton::captionLines() const {
  const QFontMetrics metrics(font());
  QStringList best{text()};
  int bestWidth = 0;
  for (qsizetype blank = text().indexOf(u' '); blank >= 0; blank = text().indexOf(u' ', blank + 1)) {
    const QStringList lines{text().left(blank), text().mid(blank + 1)};
    const int width = std::max(metrics.horizontalAdvance(lines[0]), metrics.horizontalAdvance(lines[1]));
    if (best.size() == 1 || width < bestWidth) {
      best = lines;
      bestWidth = width;
    }
  }
  return best;
}

QSize RibbonButton::sizeIn(RibbonButtonSize size) const {
  const QFontMetrics metrics(font());
  const int arrow = defaultAction()->menu() ? ArrowWidth : 0;
  const int largeHeight = 5 + LargeIcon + 3 + 2 * metrics.height() + 3;
  if (size == RibbonButtonSize::Small)
    return {Padding + SmallIcon + 5 + metrics.horizontalAdvance(text()) + arrow + Padding, largeHeight / 3};
  const QStringList lines = captionLines();
  int width = 0;
  for (const QString& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
  if (lines.size() == 2) width = std::max(width, metrics.horizontalAdvance(lines[1]) + arrow);
  return {std::max(LargeMinimumWidth, width + 2 * Padding), largeHeight};
}

void RibbonButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor accent = palette().color(QPalette::Highlight);
  const QMenu* menu = defaultAction()->menu();
  const bool pressed = isDown() || (menu && menu->isVisible());
  if (isEnabled() && (underMouse() || pressed || hasFocus())) {
    QColor fill = accent;
    fill.setAlpha(pressed ? 70 : underMouse() ? 32 : 14);
    QColor frame = accent;
    frame.setAlpha(hasFocus() || pressed ? 200 : 90);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frame);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
  const QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
  const QFontMetrics metrics(font());
  painter.setPen(ink);
  if (size_ == RibbonButtonSize::Small) {
    icon().paint(&painter, Padding, (height() - SmallIcon) / 2, SmallIcon, SmallIcon, Qt::AlignCenter, mode);
    const int left = Padding + SmallIcon + 5;
    painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignVCenter | Qt::AlignLeft, text());
    if (menu) drawArrow(painter, {width() - Padding - 4.0, height() / 2.0}, ink);
    return;
  }
  icon().paint(&painter, (width() - LargeIcon) / 2, 5, LargeIcon, LargeIcon, Qt::AlignCenter, mode);
  int top = 5 + LargeIcon + 3;
  const QStringList lines = captionLines();
  for (const QString& line : lines) {
    const bool withArrow = menu && lines.size() == 2 && &line == &lines.last();
    const int room = width() - (withArrow ? ArrowWidth : 0);
    painter.drawText(QRect(0, top, room, metrics.height()), Qt::AlignCenter, line);
    if (withArrow)
      drawArrow(painter, {(room + metrics.horizontalAdvance(line)) / 2.0 + 7, top + metrics.height() / 2.0 + 1}, ink);
    top += metrics.height();
  }
  if (menu && lines.size() == 1) drawArrow(painter, {width() / 2.0, top + metrics.height() / 2.0}, ink);
}

void RibbonButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      click();
      break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (event->key() == Qt::Key_Down && defaultAction()->menu())
        showMenu();
      else
        event->ignore();  // the ribbon moves the focus
      break;
    default:
      QToolButton::keyPressEvent(event);
  }
}
