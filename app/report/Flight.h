#pragma once

#include <optional>

#include "app/mission/DailyMission.h"
#include "app/mission/MissionGenerator.h"
#include "app/report/CombatReport.h"
#include "app/report/LogWatch.h"

class Database;

/// A mission under way, from its orders to its report: the plan that it was written from, the watch
/// for the simulator's logs, and the report that is read from them.
///
/// The application, or a session of the command line, owns one and passes it to whatever needs it.
class Flight {
public:
    /// Plans and writes the mission of the day. Logs already in the simulator's folder count as
    /// earlier flights. If this day's mission is written again before its report arrives, logs
    /// since the first time stay new. If the logs can't be listed, no mission is
    /// written. On error: as writeDailyMission.
    DailyMission begin(Database& career);
    /// Looks once for the log of the mission that was flown. True when a finished mission was
    /// found: it is in the report and has been applied to the career. Otherwise the report is
    /// empty. A log that has an end but doesn't name everybody of the plan may be incomplete: it is
    /// left to the next look, and accepted once it stops growing or if this is the last look.
    bool findReport(Database& career, bool isLastLook = false);
    /// What the looks since begin() have found.
    LogNews news() const;

    MissionGenerator& generator() { return missionGenerator; }
    CombatReport& report() { return combatReport; }
    LogWatch& logs() { return watch; }

private:
    struct Day {
        int32_t careerNumber = 0;
        int32_t date = 0; // as Calendar::dateNumber()

        bool operator==(const Day& other) const {
            return careerNumber == other.careerNumber && date == other.date;
        }
    };
    LogNews readLog(const zel::String& folder, const zel::String& name);
    bool namesEverybody() const;

    MissionGenerator missionGenerator;
    CombatReport combatReport;
    LogWatch watch;
    std::optional<Day> unreported; // the day whose mission is written and has no report yet
    bool hasTextLog = true;        // at the last look that found no log
};
