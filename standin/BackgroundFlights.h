#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "standin/NewMissions.h"

namespace standin {

/// Flies the new missions of a simulator folder in a thread of its own, until it is destroyed. A
/// mission that can't be flown is logged. If the system has no thread left, that is logged and no
/// mission is flown. While another object flies the missions of the same folder, in whatever
/// program, this one waits.
///
/// Destroying it waits only for what the thread is computing: a pause is cut short, which leaves a
/// truncated log, like any interrupted flight.
class BackgroundFlights {
public:
    /// The options' wait is replaced. A seed of 0 is drawn from the system, so that the career's
    /// draws stay the same.
    BackgroundFlights(const zel::String& dir, FlightOptions options);
    ~BackgroundFlights();
    BackgroundFlights(const BackgroundFlights&) = delete;
    BackgroundFlights& operator=(const BackgroundFlights&) = delete;

    /// Why that mission can't be flown as it is in the folder now; without a message if it can, or
    /// wasn't tried yet. Only the mission that was tried last is known.
    tools::Finding refusal(const zel::String& mission) const;

private:
    bool wait(double seconds);
    bool note(const MissionOutcome& outcome);
    int64_t changeOf(const zel::String& mission) const;

    const zel::String dir;
    mutable std::mutex mutex;
    std::condition_variable ended;
    bool isEnding = false;
    MissionOutcome last;    // of the missions tried
    int64_t lastChange = 0; // of its file, in the system's units
    tools::Finding failure; // why none is flown
    std::thread thread;     // the last member: it uses the others
};

} // namespace standin
