#pragma once

/// The whole program: creates every long-lived screen in its order, runs the message loop and gives the exit code.
int runProgram(int argc, char** argv);
