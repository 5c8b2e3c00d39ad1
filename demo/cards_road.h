#pragma once

class ScreenHands;

/// The stations at the cards: service types, outside firms, device catalogue, customers with their devices, and a new slip
/// that copies a customer by the serial number of his device. Begins and ends at the empty workspace.
void walkTheCards(ScreenHands& hands);
