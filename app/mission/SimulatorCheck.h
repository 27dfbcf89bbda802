#pragma once

#include "engine/core/String.h"

/// What the program needs of the simulator's installation.
enum class SimulatorState {
    Ready,
    NotFound,  // no data\startup.cfg, or an empty one
    NoTextLog, // it writes no text log, without which no flight can be reported
};

/// Looks into the simulator's data\startup.cfg.
SimulatorState checkSimulator();
/// What the player is to do; empty when all is well.
zel::String simulatorAdvice(SimulatorState state);
