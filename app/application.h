#pragma once

#include <functional>

/// The whole program: creates every long-lived screen in its order, runs the message loop and gives the exit code.
/// beforeLoop runs once everything is created, just before the loop.
int runProgram(int argc, char** argv, const std::function<void()>& beforeLoop = {});
