#pragma once

#include <functional>

/// Ends the process at once with that exit code: nothing else runs, nobody is asked.
void endProcess(int exitCode);

/// Puts another end in place, for tests, and gives back the one before.
std::function<void(int)> setProcessEnd(std::function<void(int)> end);
