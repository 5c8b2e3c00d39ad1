#pragma once

/// Lock keys of the keyboard.
struct KeyboardState {
  bool capsLock = false;
  bool numLock = false;
  bool scrollLock = false;
};

/// The lock keys as they are now; all off where the system does not tell.
KeyboardState keyboardState();
