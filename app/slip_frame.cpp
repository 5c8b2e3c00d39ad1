#include "app/slip_frame.h"

#include "toolkit/shell/redraw_lock.h"
#include "toolkit/shell/ribbon.h"

#include <QGuiApplication>

SlipFrame::SlipFrame(Ribbon& ribbon, RedrawLock& lock) : ribbon_(ribbon), lock_(lock) {
  ribbon_.beginUpdate();
  lock_.acquire();
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

SlipFrame::~SlipFrame() {
  QGuiApplication::restoreOverrideCursor();
  lock_.release();
  ribbon_.endUpdate();
}
