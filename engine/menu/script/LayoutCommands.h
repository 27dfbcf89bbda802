#pragma once

#include "engine/menu/script/ScriptCommand.h"

namespace zel {

/// The commands of scripts that act on layouts.
ScriptCommands layoutCommands();

} // namespace zel
