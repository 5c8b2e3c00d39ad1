#include "toolkit/shell/window_place.h"

#include "base/exceptions.h"
#include "base/ini_file.h"

#include "base/guard.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr int SmallestWidth = 200;
constexpr int SmallestHeight = 150;
constexpr int FrameDelayMs = 150;  ///< from a window's coming up to the frame that a window manager gives it

struct Place {
  QRect geometry;  ///< of the window while it is neither maximised nor minimised
  bool maximized;
};

/// "x,y,width,height,state"; nothing else is understood.
std::optional<Place> parsed(const QString& text) {
  const QStringList parts = text.trimmed().split(u',');
  if (parts.size() != 5) return {};
  int number[4];
  for (int i = 0; i < 4; ++i) {
    bool ok = false;
    number[i] = parts[i].toInt(&ok);
    if (!ok || std::abs(number[i]) > 100'000) return {};
  }
  if (number[2] < SmallestWidth || number[3] < SmallestHeight) return {};
  if (parts[4] != "normal"_L1 && parts[4] != "maximized"_L1) return {};
  return Place{QRect(number[0], number[1], number[2], number[3]), parts[4] == "maximized"_L1};
}

qint64 area(const QRect& rect) { return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height(); }

/// The rectangle, moved and cut so that it lies wholly on the screen that shows most of it, or on the first one.
QRect ontoScreen(QRect rect) {
  QRect best = QGuiApplication::primaryScreen()->availableGeometry();
  for (const QScreen* screen : QGuiApplication::screens())
    if (area(screen->availableGeometry() & rect) > area(best & rect)) best = screen->availableGeometry();
  rect.setSize(rect.size().boundedTo(best.size()));
  rect.moveLeft(std::clamp(rect.left(), best.left(), best.right() + 1 - rect.width()));
  rect.moveTop(std::clamp(rect.top(), best.top(), best.bottom() + 1 - rect.height()));
  return rect;
}

void reachFrame(QWidget* window) {
  if (!window->isVisible() || window->windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen)) return;
  const QRect frame = window->frameGeometry();
  const QRect client = window->geometry();
  const QRect placed = ontoScreen(frame);
  if (placed == frame) return;
  window->setGeometry(placed.adjusted(client.left() - frame.left(), client.top() - frame.top(), client.right() - frame.right(),
                                      client.bottom() - frame.bottom()));
}

class FrameKeeper : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Show && event->type() != QEvent::WindowStateChange) return false;
    auto* window = qobject_cast<QWidget*>(watched);
    if (window == nullptr || (window->windowType() != Qt::Window && window->windowType() != Qt::Dialog)) return false;
    QTimer::singleShot(FrameDelayMs, window, [window] { guarded(window, [window] { reachFrame(window); }); });
    return false;
  }
};
}  // namespace

void keepFramesReachable(QObject* windowOrApplication) {
  windowOrApplication->installEventFilter(new FrameKeeper(windowOrApplication));
}

WindowPlace::WindowPlace(QString path, QString key, QString machine)
    : path_(std::move(path)), key_(std::move(key)), machine_(std::move(machine)) {}

bool WindowPlace::restore(QWidget* window) const {
  const std::optional<Place> place = parsed(IniFile::read(path_, key_, machine_, {}));
  if (!place) return false;
  window->setGeometry(ontoScreen(place->geometry));
  window->setWindowState(place->maximized ? window->windowState() | Qt::WindowMaximized : window->windowState() & ~Qt::WindowMaximized);
  return true;
}

bool WindowPlace::store(const QWidget* window) const try {
  const QRect geometry = window->isMaximized() || window->isMinimized() ? window->normalGeometry() : window->geometry();
  const QString state = window->isMaximized() ? u"maximized"_s : u"normal"_s;
  IniFile::write(path_, key_, machine_,
                 u"%1,%2,%3,%4,%5"_s.arg(geometry.x())
                     .arg(geometry.y())
                     .arg(geometry.width())
                     .arg(geometry.height())
                     .arg(state));
  return true;
} catch (const Exception&) {
  return false;
}

void placeAboveStatusBar(QWidget* window) {
  constexpr int aboveStatusBar = 53;
  const QWidget* main = window->parentWidget();
  if (main == nullptr) return;
  const QPoint corner = main->mapToGlobal(QPoint(main->width(), main->height()));
  window->move(corner - QPoint(window->frameGeometry().width(), window->frameGeometry().height() + aboveStatusBar));
}
