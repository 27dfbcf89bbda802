#pragma once

#include "engine/core/String.h"

/// Where the settings file wtysettings.ini is looked for: in the player's folder, then in the
/// program's working directory, then in the folder that the program was started from. A later one
/// goes before an earlier one.

/// To be said before the program changes its working directory.
void noteStartFolder();
void loadSettings();
/// Reads all of them again, after the player has edited one; what they no longer name is forgotten.
void reloadSettings();
/// The file that a player is to write or to mend, with its full path: the one in the start folder
/// or else beside the program's files, if it exists; beside these too if they lie beside the
/// program and he may write there; else one in his own folder, which is made.
zel::String settingsFileToWrite();
