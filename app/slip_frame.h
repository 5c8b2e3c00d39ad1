#pragma once

#include "toolkit/shell/hourglass.h"

#include <optional>

class RedrawLock;
class Ribbon;

/// What stands round the creation of a slip window: no painting of ribbon and client area, the hourglass as cursor. Its
/// end gives back the cursor, then the client area, then the ribbon. Frames may nest.
class SlipFrame {
 public:
  SlipFrame(Ribbon& ribbon, RedrawLock& lock);
  ~SlipFrame();
  Q_DISABLE_COPY_MOVE(SlipFrame)

 private:
  Ribbon& ribbon_;
  RedrawLock& lock_;
  std::optional<Hourglass> hourglass_;
};
