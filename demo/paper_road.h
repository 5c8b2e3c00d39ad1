#pragma once

#include <QString>

class ScreenHands;

/// The stations at the shop's own data and at what it prints.
namespace PaperRoad {

/// Types the shop's own data, and asks for a preview before printing. Begins and ends at the empty workspace.
void fillCompany(ScreenHands& hands);
/// The receipt of the saved slip in front; name: of its picture.
void lookAtReceipt(ScreenHands& hands, const QString& name);
/// The letter of the first contract. Begins and ends at the empty workspace.
void lookAtLetter(ScreenHands& hands);

}  // namespace PaperRoad
