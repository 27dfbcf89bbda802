#pragma once

#include "app/mission/DailyMission.h"
#include "app/mission/MissionGenerator.h"
#include "app/report/CombatReport.h"
#include "app/report/LogWatch.h"

class Database;

/// A mission under way, from its orders to its report: the plan by which it was written, the watch
/// for the simulator's logs, and the report that is read from them.
///
/// The application, or a session of the command line, owns one and passes it to whatever needs it.
class Flight {
public:
    /// Plans and writes the mission of the day. The logs that are in the simulator's folder count
    /// as those of earlier flights. On error: as writeDailyMission.
    DailyMission begin(Database& career);
    /// Looks once for the log of the mission that was flown. True when a finished mission was
    /// found: it is in the report and has been carried into the career. Otherwise the report is
    /// empty.
    bool findReport(Database& career);

    MissionGenerator& generator() { return missionGenerator; }
    CombatReport& report() { return combatReport; }
    LogWatch& logs() { return watch; }

private:
    MissionGenerator missionGenerator;
    CombatReport combatReport;
    LogWatch watch;
};
