#pragma once

#include <algorithm>

/// Measures of rich text files.
namespace RtfMeasures {

/// Millimetres of a length in twentieths of a point; what no paper can be is cut off.
inline double millimetres(int twips) { return std::clamp(twips * 25.4 / 1440, -1000.0, 1000.0); }

}  // namespace RtfMeasures
