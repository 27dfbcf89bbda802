#pragma once

#include <vector>

#include "engine/core/String.h"

/// The settings file wtysettings.ini is read from the player's folder, then from the program's
/// working directory, then from the folder that the program was started from. A later one overrides
/// an earlier one.

/// REQUIRES: the program has not changed its working directory yet.
void noteStartFolder();
/// Reads the three files into Configuration; a missing one adds nothing. A relative simulator's
/// folder in the start folder's file is relative to that folder.
void loadSettings();
/// Reads all of them again after the player has edited one. Removed keys lose their values.
void reloadSettings();
/// All of them, also those that don't exist, with the one that overrides the others first and the
/// player's own last.
std::vector<zel::String> settingsFiles();
/// The file that the player should write or fix, with its full path: the one in the start folder if
/// it exists; otherwise the one beside the program's files, if it exists or if they are beside the
/// program and he may write there; otherwise one in his own folder, which is created.
zel::String settingsFileToWrite();
