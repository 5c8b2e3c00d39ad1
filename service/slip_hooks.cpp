#include "service/slip_hooks.h"

#include <QString>

SlipHooks& slipHooks() {
  static SlipHooks hooks;
  return hooks;
}
