#include "app/mission/SimulatorChecks.h"

#include "app/mission/DailyMission.h"
#include "app/mission/TextLogLines.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/WholeFile.h"

namespace {

void checkTextLog(const zel::String& file, SimulatorChecks& checks) {
    std::string content;
    checks.settingsFault = zel::readFileWhole(file, content);
    if (checks.settingsFault != zel::FileFault::None || content.empty())
        return;
    checks.textLog = textLogValue(content) != 0 ? TextLog::On : TextLog::Off;
}

/// The same steps as writing the mission of the day, up to the rename.
zel::FileFault missionsFault(const zel::String& folder) {
    const zel::String mission = folder + "/data/Missions/" + MissionFileName;
    if (zel::system::fileStatus(mission).exists) {
        const zel::FileFault fault = zel::system::writeFault(mission);
        if (fault != zel::FileFault::None)
            return fault;
    }
    zel::WholeFile draft(mission);
    return draft.write("") ? zel::FileFault::None : draft.fault();
}

void findNewestLog(const zel::String& folder, SimulatorChecks& checks) {
    std::vector<zel::system::DirectoryEntry> entries;
    zel::system::listDirectory(folder, entries);
    zel::system::FileStatus newest;
    for (const zel::system::DirectoryEntry& entry : entries) {
        if (entry.isDirectory || !zel::fitsPattern(entry.name, "missionReport*[0].txt"))
            continue;
        const zel::system::FileStatus status = zel::system::fileStatus(folder + "/" + entry.name);
        if (!status.exists || (newest.exists && status.changed <= newest.changed))
            continue;
        newest = status;
        checks.newestLog = entry.name;
    }
    checks.newestLogTime = zel::system::wallTimeOf(newest);
}

} // namespace

bool holdsSimulator(const zel::String& folder) {
    return !folder.empty() && zel::system::fileStatus(startupFileIn(folder)).size > 0 &&
           !zel::system::isDirectory(folder + "/bin/game");
}

zel::String startupFileIn(const zel::String& folder) { return folder + "/data/" + StartupName; }

SimulatorChecks checkSimulatorIn(const zel::String& folder) {
    SimulatorChecks checks;
    if (folder.empty())
        return checks;
    checks.isThere = holdsSimulator(folder);
    checkTextLog(startupFileIn(folder), checks);
    checks.missionsFault = missionsFault(folder);
    findNewestLog(folder + "/data", checks);
    return checks;
}
