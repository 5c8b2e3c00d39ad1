#pragma once

#include <cstddef>
#include <functional>

/// Work over many rows, shared by the computer's cores.
namespace Parallel {

/// In how many parts so many rows are worked on: 1 for few.
size_t partsOf(size_t count);

/// Runs work for each part, from the row begin to the one before end, side by side, and comes back when all have ended. The parts
/// lie in their order. work must not touch widgets. Throws what a part throws.
void run(size_t count, const std::function<void(size_t part, size_t begin, size_t end)>& work);

}  // namespace Parallel
