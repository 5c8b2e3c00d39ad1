#pragma once

#include <functional>
#include <optional>

/// Runs work on a thread of its own and comes back when it has ended. Meanwhile the windows stay painted under the hourglass and
/// none closes; what the user types and clicks waits, as does what the program does by itself, and follows afterwards. What work
/// throws goes to the caller. work must not touch widgets. Without an application, or off the main thread, work simply runs.
void runWhileWaiting(const std::function<void()>& work);

/// The same with a result.
template <class Work>
auto resultWhileWaiting(Work&& work) {
  std::optional<decltype(work())> result;
  runWhileWaiting([&] { result.emplace(work()); });
  return std::move(*result);
}
