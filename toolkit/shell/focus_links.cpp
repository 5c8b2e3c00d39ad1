#include "toolkit/shell/focus_links.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

namespace {

class FocusLinks : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::PlatformSurface) return false;
    const auto* window = qobject_cast<QWindow*>(watched);
    const bool isGoing = static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed;
    if (window != nullptr && isGoing) QObject::disconnect(window, &QWindow::focusObjectChanged, qApp, nullptr);
    return false;
  }
};

}  // namespace

void untieClosedWindows(QGuiApplication& application) { application.installEventFilter(new FocusLinks(&application)); }
