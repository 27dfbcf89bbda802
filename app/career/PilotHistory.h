#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/DataTokens.h"

class Database;

/// Applies the pilot files' lines that are due, then gives every dead pilot's slot to a new one. A
/// dead player's successor becomes the player.
void applyHistory(Database& career);
/// One due line of the pilot file of that index: `name` joins a squadron with a vacant slot, or
/// moves to another. True when the line is used up.
bool applyPilotEvent(Database& career, std::string_view name, const std::vector<DataToken>& tokens,
                     int32_t fileIndex);
