#include "toolkit/shell/redraw_lock.h"

void RedrawLock::acquire() {
  if (count_++ == 0 && widget_) widget_->setUpdatesEnabled(false);
}

void RedrawLock::release() {
  if (--count_ == 0 && widget_) widget_->setUpdatesEnabled(true);  // repaints the whole tree below it
}
