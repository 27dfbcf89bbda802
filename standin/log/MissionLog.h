#pragma once

#include <string>
#include <vector>

#include "engine/core/Random.h"
#include "standin/fight/FlightCourse.h"
#include "standin/mission/Mission.h"

namespace standin {

/// How a log is written.
struct LogOptions {
    std::string missionName; // "WingtallyMission", for the line that names the mission's file
    bool breakOff = false;   // the player leaves early: the log just stops
    int32_t notBefore = 0;   // earliest tick of that; 0: while the human lives
    bool truncate = false;   // the last piece ends inside a line
};

/// The pieces of a flight's log, first to last, each the whole content of its file.
///
/// It reports what the simulator reports: an object is named at its first event, hits and damage
/// appear only if the human is involved, landings only for him, and the computer's surviving pilots
/// follow the line that ends the mission.
std::vector<std::string> writeLog(const Mission& mission, const FlightCourse& flight,
                                  const LogOptions& options, zel::Random& random);

} // namespace standin
