#include "app/report/Flight.h"

#include "app/mission/Configuration.h"
#include "engine/core/Log.h"

namespace {

void logLook(const zel::String& message) {
    zel::log(message, "MenuGameFinishMission", zel::LogInfo);
}

zel::String logFolder() { return Configuration::getRofDirectory() + "data\\"; }

} // namespace

DailyMission Flight::begin(Database& career) {
    watch.begin(logFolder());
    return writeDailyMission(career, missionGenerator);
}

bool Flight::findReport(Database& career) {
    const zel::String folder = logFolder();
    logLook("Update directory: " + folder);
    const std::vector<zel::String> names = watch.look(folder);
    logLook(zel::String("New files found: ") + static_cast<int32_t>(names.size()));
    for (const zel::String& name : names) {
        logLook("File found: " + name);
        combatReport.clear();
        if (combatReport.readMission(folder, name)) {
            applyReports(combatReport.pilots, career);
            watch.settle();
            logLook("---");
            return true;
        }
        if (combatReport.hasUnreadPiece())
            watch.readAgain(name);
        combatReport.clear();
    }
    logLook("---");
    return false;
}
