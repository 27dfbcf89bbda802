#pragma once

/// What the program needs of the simulator's installation.
enum class SimulatorState {
    Ready,
    NotFound,  // data\startup.cfg is missing, empty, or that of a later simulator
    NoTextLog, // it writes no text log, without which no flight can be reported
};

/// Looks into the simulator's data\startup.cfg.
SimulatorState checkSimulator();
