#pragma once

#include <string_view>

#include "standin/mission/Mission.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// Reads a mission's text as strictly as the simulator does, or more so: where that one would load
/// something and then fly another fight than the one that was meant, this one refuses.
///
/// On error: false with the first finding; `mission` must not be used then.
[[nodiscard]] bool readMissionText(std::string_view text, Mission& mission,
                                   tools::Finding& finding);

} // namespace standin
