#pragma once

#include <functional>

#include "standin/StandIn.h"

namespace standin {

/// A mission that was flown or refused.
struct MissionOutcome {
    zel::String mission; // its file, without folder
    bool isFlown = false;
    tools::Finding finding; // why it was refused
    FlightSummary summary;  // of the flight
};

/// Flies each new mission of a simulator folder (see MissionWatch), one after the other. The first
/// flight has the seed of the options, each further one the next number.
///
/// It returns once the options' wait is interrupted, or `after` returns false. REQUIRES: the
/// options have a wait.
void flyNewMissions(const zel::String& dir, FlightOptions options,
                    const std::function<bool(const MissionOutcome&)>& after);

} // namespace standin
