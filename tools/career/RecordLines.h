#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

class SqliteFile;

// What the record of the war says, as lines in the language in use. All read the tables that
// CareerRecord::read gives; a file that has failed gives no lines.

/// A line for each flight of the player.
std::vector<zel::String> flightLines(SqliteFile& record);
/// A line for each victory of the pilots whose names hold that text, in any case.
std::vector<zel::String> victoryLines(SqliteFile& record, std::string_view name);
/// The same of the player's pilot and of those whom he followed.
std::vector<zel::String> ownVictoryLines(SqliteFile& record, int32_t player);
/// Who came to the squadron, left it and died in it.
std::vector<zel::String> postingLines(SqliteFile& record, int32_t squadron);
