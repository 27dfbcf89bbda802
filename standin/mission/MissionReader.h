#pragma once

#include <string_view>

#include "standin/mission/Mission.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// Reads a mission's text at least as strictly as the simulator: it also refuses a mission that the
/// simulator would load but fly differently than intended.
///
/// On error: false with the first finding; `mission` must not be used then.
[[nodiscard]] bool readMissionText(std::string_view text, Mission& mission,
                                   tools::Finding& finding);

} // namespace standin
