#include "app/slip_frame.h"

#include "toolkit/shell/redraw_lock.h"
#include "toolkit/shell/ribbon.h"

SlipFrame::SlipFrame(Ribbon& ribbon, RedrawLock& lock) : ribbon_(ribbon), lock_(lock) {
  ribbon_.beginUpdate();
  lock_.acquire();
  hourglass_.emplace();
}

SlipFrame::~SlipFrame() {
  hourglass_.reset();
  lock_.release();
  ribbon_.endUpdate();
}
