#pragma once

#include <vector>

#include "engine/core/String.h"

/// Where the search for the simulator begins. A test names trees of its own. An empty name is no
/// place to look.
struct SearchRoots {
    zel::String lastTime;            // the simulator's folder so far
    zel::String registry;            // its folder by the registry of Windows
    zel::String steam;               // Steam's own folder by the registry
    zel::String home;                // the player's own folder
    zel::String winePrefix;          // of the variable WINEPREFIX
    std::vector<zel::String> drives; // root folders of disks
    bool addsLocalDrives = false;    // the search asks for this machine's disks

    /// Those of this machine. It reads the settings and no disk: call it in the main thread.
    static SearchRoots ofSystem();
};
