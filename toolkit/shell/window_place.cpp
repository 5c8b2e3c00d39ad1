#include "toolkit/shell/window_place.h"

#include "base/exceptions.h"
#include "base/ini_file.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr int SmallestWidth = 200;
constexpr int SmallestHeight = 150;

struct Place {
  QRect geometry;  ///< of the window while it is neither maximised nor minimised
  bool maximized;
};

/// "x,y,width,height,state"; nothing else is understood.
std::optional<Place> parsed(const QString& text) {
  const QStringList parts = text.split(u',');
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
}  // namespace

WindowPlace::WindowPlace(QString path, QString key, QString machine)
    : path_(std::move(path)), key_(std::move(key)), machine_(std::move(machine)) {}

bool WindowPlace::restore(QWidget* window) const {
  const std::optional<Place> place = parsed(IniFile::read(path_, key_, machine_, {}));
  if (!place) return false;
  window->setGeometry(ontoScreen(place->geometry));
  if (place->maximized) window->setWindowState(window->windowState() | Qt::WindowMaximized);
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
