#pragma once

#include "engine/core/String.h"

/// Where the settings file wtysettings.ini is looked for: in the player's folder, then in the
/// program's working directory, then in the folder that the program was started from. A later one
/// goes before an earlier one.

/// To be said before the program changes its working directory.
void noteStartFolder();
void loadSettings();
/// The file that a player without settings is to write, with its full path: beside the program
/// where the program's files lie there too, else in his own folder.
zel::String settingsFileToWrite();
