#pragma once

#include <vector>

#include "app/career/PlannedPlane.h"
#include "app/mission/MissionSky.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

class Database;
class MissionGenerator;

constexpr const char* MissionTemplateFile = "Data/Missions/GenericTemplate.Mission";
/// In the folder data\Missions of the simulator.
constexpr const char* MissionFileName = "WingtallyMission.Mission";

/// The mission file with the simulator's folder.
zel::String missionFilePath();

/// Why there is no mission.
enum class MissionFault {
    None,
    TemplateUnread,
    TemplateUnfit,
    NothingPlanned,
    FileUnwritten,
    LogsUnlisted, // an earlier flight's log would count as this one's
    CareerHeld,   // another program has the career, and may have written a mission of its own
};

/// The mission of the day, as it was written and as the start screen shows it.
struct DailyMission {
    zel::String file; // the mission file; with LogsUnlisted the folder of the logs
    MissionFault fault = MissionFault::None;
    zel::FileFault reason = zel::FileFault::None; // of FileUnwritten and LogsUnlisted
    zel::String problem;                          // the fault for the log; empty if all went well
    std::vector<zel::String> roster;  // a line for each plane of the player's nation, his first
    std::vector<PlannedPlane> planes; // these planes
    MissionSky sky;                   // as the file has it
    float fightX = 0;                 // where the fight is: metres to the north and to the east
    float fightZ = 0;
    bool isFlyable = true; // the player owns a type that he can fly
};

/// Plans and writes the mission of the day into the simulator's folder. On error: a log line at
/// level 2 and `problem`.
DailyMission writeDailyMission(Database& career, MissionGenerator& generator);

/// The label of the button that leads on, in the language in use, as the roster is.
zel::String startLabel(const DailyMission& mission);
