#pragma once

#include <QString>

class ScreenHands;

/// The stations at the list of slips.
namespace SlipListRoad {

/// What other workstations took in, today and in the weeks before.
void addSlipsOfOthers(ScreenHands& hands);
/// Asks for the day's list in the parameters.
void askForTheDaysList(ScreenHands& hands);
/// Opens the list, which shows the slips of today.
void openList(ScreenHands& hands);
/// Finds the one slip of a customer by typing into the search row of the open list, and opens it.
void openSlipOf(ScreenHands& hands, const QString& customer);

}  // namespace SlipListRoad
