#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

/// A value of one of Steam's text files, with the keys of the blocks around it.
struct SteamValue {
    std::vector<zel::String> keys; // outermost first, its own last; as written
    zel::String value;
};

/// The values of a text as Steam writes it: `"key" "value"` and `"key" { ... }`, in the order of
/// the text. What can't be understood is passed over; a text that ends too soon gives what was read
/// so far. Blocks deeper than 32 give no values.
std::vector<SteamValue> readSteamText(std::string_view text);

/// The folders that libraryfolders.vdf lists, as the system names files: entries `"1" "PATH"`, as
/// Steam wrote them until 2021, and blocks `"1" { "path" "PATH" }`.
std::vector<zel::String> steamLibraries(std::string_view libraryFolders);

/// The name of a game's folder in steamapps/common by its appmanifest; empty if it has none, or if
/// that isn't the name of a folder there.
zel::String steamInstallFolder(std::string_view appManifest);
