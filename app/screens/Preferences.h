#pragma once

#include "app/screens/Switch.h"

/// The player's preferences for the program, not for the career.
namespace preferences {

Switch sound();      // on at first
Switch fullScreen(); // off at first

/// Applies the switch to the sounds.
void applySound();
/// Applies the switch to the window.
void applyFullScreen();
/// Updates the switch after the window's keys have changed the mode.
void noteFullScreen(bool isFullscreen);

} // namespace preferences
