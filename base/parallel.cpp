#include "base/parallel.h"

#include <algorithm>
#include <future>
#include <thread>
#include <vector>

namespace {

constexpr size_t leastOfPart = 20'000;  ///< rows that are worth a thread
constexpr size_t mostParts = 8;         ///< beyond, the memory is what is waited for

}  // namespace

size_t Parallel::partsOf(size_t count) {
  const size_t cores = std::max(1U, std::thread::hardware_concurrency());
  return std::clamp(count / leastOfPart, size_t(1), std::min(cores, mostParts));
}

void Parallel::run(size_t count, const std::function<void(size_t part, size_t begin, size_t end)>& work) {
  const size_t parts = partsOf(count);
  const auto first = [=](size_t part) { return count * part / parts; };
  std::vector<std::future<void>> others;
  for (size_t part = 1; part < parts; ++part)
    others.push_back(std::async(std::launch::async, [&work, &first, part] { work(part, first(part), first(part + 1)); }));
  work(0, 0, first(1));
  for (std::future<void>& other : others) other.get();
}
