#pragma once

#include <cstdint>

#include "engine/core/String.h"

/// One plane of a mission's plan.
struct PlannedPlane {
    int32_t pilot = 0; // index of the pilot
    zel::String name;
    int32_t nation = 0; // the pilot's
    /// His figures as the plan is made: skill 0 to about 12, confirmed victories, missions flown.
    int32_t skill = 0;
    int32_t shotdowns = 0;
    int32_t missions = 0;
    int32_t squadron = 0;   // index of the squadron that it flies for
    int32_t pilotFile = -1; // the pilot's; negative for a generated one
    zel::String type;       // aircraft identifier
};
