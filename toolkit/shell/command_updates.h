#pragma once

#include <functional>

class QAction;
class QWidget;

/// Keeps an action's enabled state true to what isEnabled tells. It is asked while the program is idle, 200 ms apart at the
/// least and only while the screen shows: visible, its window not minimised, no modal dialog over it. It is asked at once
/// when the screen is shown. An action with a shortcut is also asked when that key is pressed, before the shortcut decides,
/// so that no key runs or misses a command by a state of 200 ms ago. An error of isEnabled disables the action and is
/// reported once until it succeeds again. The entry goes with screen or action; a second one for the same two replaces it.
void keepUpdated(QWidget* screen, QAction* action, std::function<bool()> isEnabled);

/// Asks for all actions of the screen at once, shown or not. For code that acts on an action's state right after a change;
/// shortcuts need it not.
void updateCommands(QWidget* screen);
