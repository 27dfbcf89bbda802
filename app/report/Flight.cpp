#include "app/report/Flight.h"

#include <algorithm>

#include "app/career/Calendar.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/mission/SimulatorCheck.h"
#include "app/report/FlightAccount.h"
#include "engine/core/Log.h"

namespace {

void logLook(const zel::String& message, int32_t level = zel::LogInfo) {
    zel::log(message, "MenuGameFinishMission", level);
}

zel::String logFolder() { return Configuration::getRofDirectory() + "data\\"; }

bool isOurMission(const zel::String& name) {
    const std::string_view file = MissionFileName;
    return zel::equalsNoCase(name.view(), file.substr(0, file.rfind('.')));
}

/// No mission is written while the logs of earlier flights are unknown: one of them could be
/// carried into the career a second time.
DailyMission withoutLogs(zel::FileFault reason) {
    DailyMission mission;
    mission.file = logFolder();
    mission.fault = MissionFault::LogsUnlisted;
    mission.reason = reason;
    mission.problem = "The simulator's logs can't be listed in " + mission.file + ": " +
                      zel::faultText(reason) + "; no mission is written";
    logLook(mission.problem, zel::LogError);
    return mission;
}

} // namespace

DailyMission Flight::begin(Database& career) {
    const Day today{career.careerNumber, career.calendar().dateNumber()};
    combatReport.clear();
    hasTextLog = true;
    if (unreported == today)
        watch.resume();
    else if (const zel::FileFault reason = watch.begin(logFolder()); reason != zel::FileFault::None)
        return withoutLogs(reason);
    DailyMission mission = writeDailyMission(career, missionGenerator);
    if (mission.fault == MissionFault::None)
        unreported = today;
    else if (!(unreported == today))
        unreported.reset();
    return mission;
}

bool Flight::findReport(Database& career, bool isLastLook) {
    const zel::String folder = logFolder();
    logLook("Update directory: " + folder);
    const std::vector<zel::String> names = watch.look(folder);
    logLook(zel::String("New files found: ") + int32_t(names.size()));
    bool isFound = false;
    zel::String found;
    for (const zel::String& name : names) {
        logLook("File found: " + name);
        const LogNews news = readLog(folder, name);
        isFound = news.state == LogState::Ending &&
                  (isLastLook || namesEverybody() || watch.hasStoppedEnding(name));
        if (isFound) {
            found = name;
            break;
        }
        watch.note(name, news);
        combatReport.clear();
    }
    logLook("---");
    if (isFound) {
        if (career.observer != nullptr)
            career.observer->onFlight(career,
                                      accountOf(combatReport, missionGenerator, folder + found));
        applyReports(combatReport.pilots, career, true);
        watch.settle();
        unreported.reset();
    } else if (watch.news().state == LogState::None) {
        hasTextLog = checkSimulator() != SimulatorState::NoTextLog;
    }
    return isFound;
}

/// Reads a log into the report and returns what it turned out to be.
LogNews Flight::readLog(const zel::String& folder, const zel::String& name) {
    combatReport.clear();
    if (combatReport.readMission(folder, name))
        return {LogState::Ending, {}};
    if (combatReport.hasUnreadPiece())
        return {LogState::Unread, name};
    if (const zel::String mission = loggedMission(combatReport.lines);
        !mission.empty() && !isOurMission(mission)) {
        logLook(name + " is the log of another mission: " + mission, zel::LogWarning);
        return {LogState::OtherMission, mission};
    }
    for (const PilotReport& record : combatReport.pilots)
        if (record.human != 0 && record.pilot < 0)
            return {LogState::OtherPilot, record.name};
    return {LogState::Begun, {}};
}

/// The simulator names pilots who saw no fight only after the mission's end.
bool Flight::namesEverybody() const {
    const std::vector<PilotReport>& records = combatReport.pilots;
    const std::vector<PlannedPlane>& plan = missionGenerator.plan;
    return std::all_of(plan.begin(), plan.end(), [&](const PlannedPlane& plane) {
        return std::any_of(records.begin(), records.end(),
                           [&](const PilotReport& record) { return record.pilot == plane.pilot; });
    });
}

LogNews Flight::news() const {
    const LogNews news = watch.news();
    return news.state == LogState::None && !hasTextLog ? LogNews{LogState::NoTextLog, {}} : news;
}
