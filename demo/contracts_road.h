#pragma once

class ScreenHands;

/// The stations at the maintenance contracts and the reminder window. Need a customer "ÇİĞDEM ÖZTÜRK".
namespace ContractsRoad {

/// The window that stands open after the login; closes it.
void meetReminders(ScreenHands& hands);
/// A contract with a number of its own, after the program has asked for what was missing. Begins and ends at the empty
/// workspace.
void addContract(ScreenHands& hands);
/// The window's three pages with what is due today. Begins and ends at the empty workspace.
void lookAtReminders(ScreenHands& hands);

}  // namespace ContractsRoad
