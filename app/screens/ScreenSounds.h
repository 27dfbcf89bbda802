#pragma once

/// Plays Sounds/NAME.wav, unless the player has switched the sounds off.
void playScreenSound(const char* name);
