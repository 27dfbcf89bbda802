#include "app/report/Flight.h"

#include <algorithm>
#include <utility>

#include "app/career/Calendar.h"
#include "app/career/CareerLock.h"
#include "app/career/CareerObserver.h"
#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/mission/SimulatorCheck.h"
#include "app/report/FlightAccount.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"

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

/// The other program would take the flight for one of its own mission.
DailyMission withoutCareer(const CareerLock& lock) {
    DailyMission mission;
    mission.fault = MissionFault::CareerHeld;
    mission.problem = "No mission is written: " + holderText(lock);
    logLook(mission.problem, zel::LogError);
    return mission;
}

/// What a report needs from the plan.
void restorePlan(const MissionOrders& orders, MissionGenerator& generator) {
    generator.plan = orders.planes;
    generator.locationX = orders.x;
    generator.locationZ = orders.z;
    generator.offsetX = generator.offsetZ = 0;
}

} // namespace

OrdersFile fileOf(const MissionOrders& orders) {
    const zel::String path = missionFilePath();
    const zel::system::FileStatus status = zel::system::fileStatus(path);
    if (!status.exists)
        return OrdersFile::Missing;
    const bool isSame = status.size == orders.size && checksumOfFile(path) == orders.hash;
    return isSame ? OrdersFile::Same : OrdersFile::Changed;
}

DailyMission Flight::begin(Database& career) {
    if (career.isReadOnly)
        return withoutCareer(*career.lock);
    const MissionOrders* before = orders(career);
    combatReport.clear();
    hasTextLog = true;
    isTakenUp = false;
    followFolder();
    const zel::FileFault reason =
        before != nullptr ? watch.resume(logFolder()) : watch.begin(logFolder());
    if (reason != zel::FileFault::None)
        return withoutLogs(reason);
    // He went back to an earlier page, and chooses to fly again. A log that a power cut took may
    // come again under its name.
    if (before != nullptr && !before->reportedLog.empty() &&
        zel::system::fileStatus(logFolder() + before->reportedLog).exists)
        watch.ignore(before->reportedLog);
    DailyMission mission = writeDailyMission(career, missionGenerator);
    if (mission.fault == MissionFault::None)
        keepOrders(career, mission);
    else if (before != nullptr)
        restorePlan(*before, missionGenerator);
    return mission;
}

void Flight::keepOrders(const Database& career, const DailyMission& mission) {
    MissionOrders orders;
    orders.careerNumber = career.careerNumber;
    orders.date = career.calendar().dateNumber();
    orders.file = MissionFileName;
    orders.size = zel::system::fileStatus(mission.file).size;
    orders.hash = checksumOfFile(mission.file);
    orders.isFlyable = mission.isFlyable;
    orders.x = missionGenerator.locationX + missionGenerator.offsetX;
    orders.z = missionGenerator.locationZ + missionGenerator.offsetZ;
    orders.planes = missionGenerator.plan;
    orders.knownLogs = watch.knownLogs();
    orders.logFolders = watch.folders();
    if (book == nullptr) {
        out = std::make_shared<const MissionOrders>(std::move(orders));
        return;
    }
    areKept = book->keep(career, std::move(orders));
    out = book->ordersOut(career);
}

const MissionOrders* Flight::orders(const Database& career) {
    if (book == nullptr) {
        const bool areOut = out != nullptr && out->careerNumber == career.careerNumber &&
                            out->date == career.calendar().dateNumber();
        return areOut ? out.get() : nullptr;
    }
    const std::shared_ptr<const MissionOrders> kept = book->ordersOut(career);
    if (kept != out) {
        out = kept;
        if (out != nullptr)
            takeUp();
    }
    return out.get();
}

void Flight::takeUp() {
    restorePlan(*out, missionGenerator);
    watch.begin(out->knownLogs,
                out->logFolders.empty() ? LogWatch::markOf(logFolder()) : out->logFolders);
    combatReport.clear();
    hasTextLog = true;
    areKept = true;
    isTakenUp = true;
}

/// A folder that holds the mission of the orders is the one they were written to, moved since.
void Flight::followFolder() {
    const zel::String folder = logFolder();
    if (out != nullptr && !watch.hasSeen(folder) && fileOf(*out) == OrdersFile::Same)
        watch.moveTo(folder);
}

int32_t Flight::voidOrders(const Database& career) const {
    return book != nullptr ? book->voidOrders(career) : 0;
}

bool Flight::findReport(Database& career, bool isLastLook) {
    const zel::String folder = logFolder();
    isTakenUp = false;
    logLook("Update directory: " + folder);
    followFolder();
    const std::vector<zel::String> names = watch.poll(folder);
    logLook(zel::String("New files found: ") + int32_t(names.size()));
    zel::String found = ownLog(folder, names, isLastLook);
    if (found.empty() && isLastLook)
        found = strangersLog(folder);
    logLook("---");
    if (!found.empty()) {
        account = accountOf(combatReport, missionGenerator, folder + found);
        if (career.observer != nullptr)
            career.observer->onFlight(career, account);
        applyReports(combatReport.pilots, career, true);
        watch.markAsKnown();
        out.reset();
    } else if (watch.news().state == LogState::None) {
        hasTextLog = checkSimulator() != SimulatorState::NoTextLog;
    }
    return !found.empty();
}

/// Reads those logs up to the one that makes the report, and returns its name; empty for none.
zel::String Flight::ownLog(const zel::String& folder, const std::vector<zel::String>& names,
                           bool isLastLook) {
    for (const zel::String& name : names) {
        logLook("File found: " + name);
        const LogNews news = readLog(folder, name);
        const bool isWhole = news.state == LogState::Ending &&
                             (isLastLook || namesEverybody() || watch.hasStoppedEnding(name));
        if (!isWhole) {
            watch.note(name, {news.state, news.detail, combatReport.unreadFault()});
        } else if (!wasReported(folder, name)) {
            return name;
        } else {
            logLook(name + " was reported before", zel::LogWarning);
            watch.ignore(name);
        }
        combatReport.clear();
    }
    return {};
}

/// The same with the logs whose player the plan doesn't know: the simulator may have another name
/// for his plane, as after a change in its editor.
zel::String Flight::strangersLog(const zel::String& folder) {
    for (const LogState open : {LogState::Begun, LogState::Growing, LogState::Unread})
        if (!watch.logsIn(open).empty())
            return {}; // his own may still become a report
    const std::vector<zel::String> names = watch.logsIn(LogState::OtherPilot);
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        if (combatReport.readMission(folder, *name, missionGenerator.plan) &&
            !wasReported(folder, *name))
            return *name;
        combatReport.clear();
    }
    return {};
}

/// Reads a log into the report and returns what it turned out to be.
LogNews Flight::readLog(const zel::String& folder, const zel::String& name) {
    combatReport.clear();
    const bool hasEnd = combatReport.readMission(folder, name, missionGenerator.plan);
    if (combatReport.hasUnreadPiece())
        return {LogState::Unread, name};
    if (const zel::String mission = loggedMission(combatReport.lines);
        !mission.empty() && !isOurMission(mission)) {
        logLook(name + " is the log of another mission: " + mission, zel::LogWarning);
        return {LogState::OtherMission, mission};
    }
    if (const int32_t date = loggedDate(combatReport.lines);
        date != 0 && out != nullptr && date != out->date) {
        logLook(name + " is the log of another day: " + date, zel::LogWarning);
        return {LogState::OtherDay, {}};
    }
    const std::vector<PilotReport>& records = combatReport.pilots;
    const auto isPlayer = [](const PilotReport& record) { return record.human != 0; };
    const auto player = std::find_if(records.begin(), records.end(), isPlayer);
    const bool isPlanned = std::any_of(player, records.end(), [&](const PilotReport& record) {
        return isPlayer(record) && record.pilot >= 0;
    });
    if (player != records.end() && !isPlanned)
        return {LogState::OtherPilot, player->name};
    return {hasEnd ? LogState::Ending : LogState::Begun, {}};
}

bool Flight::wasReported(const zel::String& folder, const zel::String& name) const {
    return book != nullptr && book->isReported(name, checksumOfFile(folder + name));
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
