#include "standin/BackgroundFlights.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "engine/core/LockFile.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "standin/NewMissions.h"

namespace standin {

namespace {

constexpr double SecondsToNextTry = 1;

bool logRefusal(const MissionOutcome& outcome) {
    if (!outcome.isFlown)
        zel::log(outcome.finding.text(), "StandIn", zel::LogWarning);
    return true;
}

} // namespace

BackgroundFlights::BackgroundFlights(const zel::String& dir, FlightOptions options) {
    options.wait = [this](double seconds) { return wait(seconds); };
    if (options.seed == 0)
        options.seed = std::max(zel::system::entropy(), 1U);
    try {
        thread = std::thread([this, folder = std::string(dir.view()), options] {
            zel::LockFile lock;
            while (!lock.take(folder + "/flights.lock") && lock.fault() == zel::FileFault::Held)
                if (!wait(SecondsToNextTry))
                    return;
            flyNewMissions(folder, options, logRefusal);
        });
    } catch (const std::system_error&) {
        zel::log("The stand-in can't fly: the system can't start another thread", "StandIn",
                 zel::LogError);
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

} // namespace standin
