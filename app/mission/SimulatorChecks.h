#pragma once

#include "engine/core/Clock.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// The simulator's settings, in its folder "data".
constexpr const char* StartupName = "startup.cfg";

enum class TextLog {
    On,
    Off,
    Unknown, // data/startup.cfg is missing or can't be read
};

/// What the checks of one folder found.
struct SimulatorChecks {
    bool isThere = false; // as holdsSimulator() finds
    TextLog textLog = TextLog::Unknown;
    zel::FileFault settingsFault = zel::FileFault::None; // why startup.cfg can't be read
    zel::FileFault missionsFault = zel::FileFault::None; // why data/Missions can't be written
    zel::String newestLog;                               // its file's name; empty if there is none
    zel::WallTime newestLogTime{};                       // when it was begun or changed last

    /// Whether missions can be flown there. A log isn't needed for that.
    bool isReady() const {
        return isThere && textLog == TextLog::On && missionsFault == zel::FileFault::None;
    }
};

/// Checks a folder. Write access for missions is tested by creating and removing a draft. For an
/// empty name nothing is checked.
SimulatorChecks checkSimulatorIn(const zel::String& folder);
/// Whether that folder has the simulator: data/startup.cfg that isn't empty. The later simulators
/// of the same make have such a file too, but their program is elsewhere. False for an empty name.
bool holdsSimulator(const zel::String& folder);
/// data/startup.cfg of that folder.
zel::String startupFileIn(const zel::String& folder);
