#pragma once

#include "standin/mission/MissionText.h"

namespace standin {

/// Whether a block has the keys that its name asks for, none twice, each with a value of its kind.
/// Blocks that a flight depends on have no others: one that isn't known is a slip of the pen there.
/// Not for Group, whose blocks are looked at one by one. On error: false with the first finding.
[[nodiscard]] bool checkBlock(const MissionBlock& block, tools::Finding& finding);
/// Whether a block holds rows and nothing else. On error: false with the finding.
[[nodiscard]] bool checkRowsOnly(const MissionBlock& block, tools::Finding& finding);

} // namespace standin
