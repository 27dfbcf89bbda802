#pragma once

#include "engine/core/String.h"
#include "tools/common/Finding.h"

/// The check of the game's screens: it runs all their scripts without a window and reports what a
/// player would trip over.
namespace menucheck {

/// Checks the screens of Menus/init.lst in the folder, which becomes the current one. The findings
/// name files relative to it and are sorted by file, then by line; line 0 if none can be named.
/// REQUIRES: no menu is alive.
tools::Findings checkMenus(const zel::String& folder);

} // namespace menucheck
