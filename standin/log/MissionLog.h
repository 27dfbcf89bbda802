#pragma once

#include <string>
#include <vector>

#include "engine/core/Random.h"
#include "standin/fight/FlightCourse.h"
#include "standin/mission/Mission.h"

namespace standin {

struct LogOptions {
    std::string missionName; // "WingtallyMission", for the line that names the mission's file
    bool breakOff = false;   // the player leaves before the end: the log just stops
    int32_t notBefore = 0;   // tick that it must still reach; 0: it stops while the human lives
    bool truncate = false;   // the last piece ends inside a line
};

/// The pieces of a flight's log, first to last, each the whole content of its file.
///
/// It reports what the simulator reports: an object is named at its first event, hits and damage
/// appear only where the human is one of the two, landings only for him, and the computer's pilots
/// who live at the end follow the line that ends the mission.
std::vector<std::string> writeLog(const Mission& mission, const FlightCourse& flight,
                                  const LogOptions& options, zel::Random& random);

} // namespace standin
