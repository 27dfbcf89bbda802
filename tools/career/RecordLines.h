#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

class SqliteFile;

// The record of the war as lines in the current language. All read the tables from
// CareerRecord::read; a file that has failed gives no lines.

/// A line for each flight of the player.
std::vector<zel::String> flightLines(SqliteFile& record);
/// A line for each victory of the pilots whose names contain that text, ignoring case.
std::vector<zel::String> victoryLines(SqliteFile& record, std::string_view name);
/// The same for the player's pilot and his predecessors.
std::vector<zel::String> ownVictoryLines(SqliteFile& record, int32_t player);
/// Who joined the squadron, left it and died in it.
std::vector<zel::String> postingLines(SqliteFile& record, int32_t squadron);
