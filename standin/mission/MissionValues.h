#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standin/Vector.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// The values of a mission's text. Each reads the whole of `text` or fails.
bool parseWhole(std::string_view text, int32_t& number);
/// Digits and at most a point: missions contain no exponents, which a C library would accept.
bool parseNumber(std::string_view text, double& number);
/// [1,2,3] or [].
bool parseList(std::string_view text, std::vector<int32_t>& numbers);
/// H:M:S and D.M.YYYY, into their three parts in that order.
bool parseTime(std::string_view text, int32_t (&parts)[3]);
bool parseDate(std::string_view text, int32_t (&parts)[3]);

/// Values of blocks that were checked: 0 or empty for a missing key.
int32_t wholeOf(const MissionBlock& block, std::string_view key);
double numberOf(const MissionBlock& block, std::string_view key, double otherwise = 0);
std::string textOf(const MissionBlock& block, std::string_view key);
std::vector<int32_t> listOf(const MissionBlock& block, std::string_view key);
/// XPos, YPos and ZPos.
Vector positionOf(const MissionBlock& block);
/// Lowered, with "/" between folders.
std::string plainPath(std::string_view path);
/// The line of the key; that of the block if it lacks the key.
int32_t lineOf(const MissionBlock& block, std::string_view key);

} // namespace standin
