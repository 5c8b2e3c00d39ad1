#pragma once

#include <QString>

#include <vector>

/// Decisions of the card screens; plain values in and out.
namespace CardRules {

/// Numbers as one text, joined by ","; an empty one leaves its place empty.
QString joinedNumbers(const std::vector<QString>& numbers);

}  // namespace CardRules
