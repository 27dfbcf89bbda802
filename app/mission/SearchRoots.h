#pragma once

#include <vector>

#include "engine/core/String.h"

/// Where the search for the simulator begins. Tests name trees of their own. Empty names are
/// ignored.
struct SearchRoots {
    zel::String lastTime;            // the simulator's folder so far
    zel::String registry;            // its folder according to the Windows registry
    zel::String steam;               // Steam's own folder according to the registry
    zel::String home;                // the player's own folder
    zel::String winePrefix;          // of the variable WINEPREFIX
    std::vector<zel::String> drives; // root folders of disks
    bool addsLocalDrives = false;    // the search asks for this machine's disks

    /// Those of this machine. It reads the settings and no disk: call it in the main thread.
    static SearchRoots ofSystem();
};
