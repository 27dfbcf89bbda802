#pragma once

#include "standin/mission/MissionText.h"

namespace standin {

/// Whether a block has the keys that its name requires, none twice, each with a valid value. In
/// blocks that a flight depends on, an unknown key is a typo. Not for Group, whose blocks are
/// checked one by one. On error: false with the first finding.
[[nodiscard]] bool checkBlock(const MissionBlock& block, tools::Finding& finding);
/// Whether a block holds rows and nothing else. On error: false with the finding.
[[nodiscard]] bool checkRowsOnly(const MissionBlock& block, tools::Finding& finding);

} // namespace standin
