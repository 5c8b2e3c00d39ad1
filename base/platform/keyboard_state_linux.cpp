#include "base/platform/keyboard_state.h"

#include <QGuiApplication>

#include <X11/XKBlib.h>

KeyboardState keyboardState() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  unsigned indicators = 0;
  if (!x11 || !x11->display() || XkbGetIndicatorState(x11->display(), XkbUseCoreKbd, &indicators) != 0) return {};
  return {.capsLock = (indicators & 1) != 0, .numLock = (indicators & 2) != 0, .scrollLock = (indicators & 4) != 0};
}
