#pragma once

#include "app/screens/Switch.h"

/// The player's wishes that concern the program alone, not the career.
namespace preferences {

Switch sound();      // on at first
Switch fullScreen(); // off at first

/// The sounds follow the switch.
void applySound();
/// The window follows the switch.
void applyFullScreen();
/// The switch follows the window, whose keys have switched it.
void noteFullScreen(bool isFullscreen);

} // namespace preferences
