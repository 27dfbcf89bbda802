#pragma once

#include <vector>

#include "engine/core/String.h"

/// The check of a program's screens: it runs all their scripts, without a window, and tells what a
/// player would stumble over.
namespace menucheck {

struct Fault {
    zel::String file; // relative to the folder, as scripts name it
    int32_t line;     // as an editor counts; 0 where none can be named
    zel::String what; // what is wrong
    bool isWarning;   // no player notices it
};
using Faults = std::vector<Fault>;

/// Checks the screens of Menus/init.lst in the folder, which becomes the current one. By files,
/// then by lines. REQUIRES: no menu is alive.
Faults checkMenus(const zel::String& folder);

} // namespace menucheck
