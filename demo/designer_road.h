#pragma once

class ScreenHands;

/// From a saved slip that is open: its receipt in the designer, changed by mouse and keys, looked at, saved and printed.
namespace DesignerRoad {

void changeReceipt(ScreenHands& hands);

}  // namespace DesignerRoad
