#pragma once

class ScreenHands;

/// The stations at the statistics: the current customer of the customer list, this year and the one before, and a device from a
/// new slip. Begins and ends at the empty workspace. Needs a customer "ÇİĞDEM ÖZTÜRK".
void walkTheExtras(ScreenHands& hands);
