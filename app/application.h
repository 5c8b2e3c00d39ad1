#pragma once

#include <functional>

/// Puts the functions that subsystems need of each other into their places (app/ports.h, service/slip_hooks.h). They look for
/// their screens when they are called, so that the screens may come and go.
void fillPorts();

/// The whole program: creates every long-lived screen in its order, runs the message loop and gives the exit code.
/// beforeLoop runs once everything is created, just before the loop.
int runProgram(int argc, char** argv, const std::function<void()>& beforeLoop = {});
