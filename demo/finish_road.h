#pragma once

#include <QtGlobal>

class ScreenHands;
class Simulator;

/// From a saved slip that stands open to the customer who takes his device home, and to a copy of the data that brings the slip
/// back.
namespace FinishRoad {

/// Jobs that the print service's queue has done.
qsizetype printedJobs();
/// The label for the device goes to the print service's queue.
void printLabel(ScreenHands& hands);
/// The job is done: the customer is told by SMS and e-mail, and the receipt of that status comes up.
void complete(ScreenHands& hands, const Simulator& simulator);
/// The customer takes the device.
void deliver(ScreenHands& hands);
/// A copy of all data is made by the tool that KVTK_DEMO_SERVER names, the slip is deleted, and the copy brings it back. Ends at the
/// empty workspace.
void loseAndRestore(ScreenHands& hands);

}  // namespace FinishRoad
