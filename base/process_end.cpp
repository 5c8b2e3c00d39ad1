#include "base/process_end.h"

#include <cstdlib>
#include <utility>

namespace {
std::function<void(int)>& processEnd() {
  static std::function<void(int)> instance = [](int exitCode) { std::_Exit(exitCode); };
  return instance;
}
}  // namespace

void endProcess(int exitCode) { processEnd()(exitCode); }

std::function<void(int)> setProcessEnd(std::function<void(int)> end) {
  return std::exchange(processEnd(), std::move(end));
}
