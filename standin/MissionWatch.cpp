#include "standin/MissionWatch.h"

#include <algorithm>

#include "engine/core/Directory.h"
#include "engine/core/System.h"
#include "standin/StandIn.h"

namespace standin {

namespace {

/// The time at which the newest log was started; 0 if there is none. Logs dated in the
/// future, from before the clock was set back, don't count: every mission is older.
int64_t newestLog(const zel::String& data) {
    const int64_t now = zel::system::fileTime();
    int64_t newest = 0;
    if (!zel::system::isDirectory(data))
        return newest;
    const zel::Directory logs(data, "missionReport(*)[0].txt");
    for (int32_t i = 0; i < logs.count(); ++i) {
        const int64_t changed = zel::system::fileStatus(data + "/" + logs.name(i)).changed;
        if (changed <= now)
            newest = std::max(newest, changed);
    }
    return newest;
}

} // namespace

MissionWatch::MissionWatch(const zel::String& dir) : dir(dir) {
    const int64_t flownBefore = newestLog(dataFolder(dir));
    const zel::Directory listing(missionsFolder(dir), "*.mission");
    for (int32_t i = 0; i < listing.count(); ++i) {
        const auto status = zel::system::fileStatus(missionsFolder(dir) + "/" + listing.name(i));
        const Looks looks{status.size, status.changed};
        if (status.exists && status.changed <= flownBefore)
            missions[listing.name(i).c_str()] = {looks, looks};
    }
}

zel::String MissionWatch::poll() {
    if (!zel::system::isDirectory(missionsFolder(dir)))
        return {};
    const zel::Directory listing(missionsFolder(dir), "*.mission");
    zel::String ready;
    for (int32_t i = 0; i < listing.count(); ++i) {
        const auto status = zel::system::fileStatus(missionsFolder(dir) + "/" + listing.name(i));
        if (!status.exists)
            continue;
        const Looks looks{status.size, status.changed};
        Seen& seen = missions[listing.name(i).c_str()];
        const bool steady = looks == seen.last;
        seen.last = looks;
        if (!steady || looks == seen.flown || !ready.empty())
            continue;
        seen.flown = looks;
        ready = listing.name(i);
    }
    return ready;
}

} // namespace standin
