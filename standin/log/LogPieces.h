#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/core/Random.h"

namespace standin {

/// A line of a log with its end, and its time.
struct TickLine {
    int32_t tick; // since the mission's start
    std::string text;
};

/// The lines up to a tick as the contents of files, a half minute of flight each. Each begins with
/// the head line that every file has; some contain nothing else. REQUIRES: rising ticks.
std::vector<std::string> cutIntoPieces(const std::vector<TickLine>& lines, int32_t lastTick,
                                       zel::Random& random);
/// Cuts a piece in the middle of one of its lines.
void truncatePiece(std::string& piece, zel::Random& random);

} // namespace standin
