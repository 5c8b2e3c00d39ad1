#include "toolkit/shell/edge_snap.h"

#include "base/guard.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

#include <cstdlib>

namespace {
constexpr int restMs = 250;
}  // namespace

EdgeSnap::EdgeSnap(QWidget* window, int distance) : QObject(window), window_(window), distance_(distance) {
  letGo_.setSingleShot(true);
  letGo_.setInterval(restMs);
  connectGuarded(&letGo_, &QTimer::timeout, this, [this] { snap(); });
  window->installEventFilter(this);
}

QPoint EdgeSnap::snapped(const QRect& frame, const QRect& area, int distance) {
  QRect place = frame;
  if (std::abs(place.right() - area.right()) <= distance) place.moveRight(area.right());
  if (std::abs(place.left() - area.left()) <= distance) place.moveLeft(area.left());
  if (std::abs(place.bottom() - area.bottom()) <= distance) place.moveBottom(area.bottom());
  if (std::abs(place.top() - area.top()) <= distance) place.moveTop(area.top());
  return place.topLeft();
}

bool EdgeSnap::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Move && window_->isVisible() && window_->windowState() == Qt::WindowNoState) letGo_.start();
  return QObject::eventFilter(watched, event);
}

void EdgeSnap::snap() {
  if (!window_->isVisible() || window_->windowState() != Qt::WindowNoState) return;
  const QPoint place = snapped(window_->frameGeometry(), window_->screen()->availableGeometry(), distance_);
  if (place != window_->frameGeometry().topLeft()) window_->move(place);
}
