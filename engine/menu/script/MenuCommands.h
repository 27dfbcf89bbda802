#pragma once

#include "engine/menu/script/ScriptCommand.h"

namespace zel {

/// The commands of scripts that act on screens.
ScriptCommands menuCommands();

} // namespace zel
