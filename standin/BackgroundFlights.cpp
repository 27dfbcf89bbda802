#include "standin/BackgroundFlights.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "engine/core/LockFile.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"

namespace standin {

namespace {

constexpr double SecondsToNextTry = 1;

} // namespace

BackgroundFlights::BackgroundFlights(const zel::String& dir, FlightOptions options) : dir(dir) {
    options.wait = [this](double seconds) { return wait(seconds); };
    if (options.seed == 0)
        options.seed = std::max(zel::system::entropy(), 1U);
    try {
        thread = std::thread([this, folder = std::string(dir.view()), options] {
            zel::LockFile lock;
            while (!lock.take(folder + "/flights.lock") && lock.fault() == zel::FileFault::Held)
                if (!wait(SecondsToNextTry))
                    return;
            flyNewMissions(folder, options,
                           [this](const MissionOutcome& outcome) { return note(outcome); });
        });
    } catch (const std::system_error&) {
        failure.message = "the system can't start another thread";
        zel::log("The stand-in can't fly: " + failure.message, "StandIn", zel::LogError);
    }
}

BackgroundFlights::~BackgroundFlights() {
    {
        const std::lock_guard lock(mutex);
        isEnding = true;
    }
    ended.notify_all();
    if (thread.joinable())
        thread.join();
}

bool BackgroundFlights::wait(double seconds) {
    std::unique_lock lock(mutex);
    return !ended.wait_for(lock, std::chrono::duration<double>(seconds),
                           [this] { return isEnding; });
}

bool BackgroundFlights::note(const MissionOutcome& outcome) {
    if (!outcome.isFlown)
        zel::log(outcome.finding.text(), "StandIn", zel::LogWarning);
    const std::lock_guard lock(mutex);
    last = outcome;
    lastChange = changeOf(outcome.mission);
    return true;
}

int64_t BackgroundFlights::changeOf(const zel::String& mission) const {
    return zel::system::fileStatus(missionsFolder(dir) + "/" + mission).changed;
}

tools::Finding BackgroundFlights::refusal(const zel::String& mission) const {
    const std::lock_guard lock(mutex);
    const bool isRefused = zel::equalsNoCase(last.mission.view(), mission.view()) &&
                           !last.isFlown && lastChange == changeOf(mission);
    return isRefused ? last.finding : failure;
}

} // namespace standin
