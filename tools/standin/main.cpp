#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "engine/core/System.h"
#include "standin/MissionWatch.h"
#include "standin/StandIn.h"
#include "tools/standin/CommandLine.h"

namespace {

constexpr double LookPause = 0.5;  // seconds between two looks for missions
constexpr double SleepSlice = 0.1; // seconds after which an interrupt is heeded at the latest

volatile std::sig_atomic_t interrupted = 0;

/// The first one is heeded at the next wait; a second one ends the program at once.
void interrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

bool waitFor(double seconds) {
    for (; seconds > 0 && interrupted == 0; seconds -= SleepSlice)
        zel::system::sleepMilliseconds(static_cast<uint32_t>(std::min(seconds, SleepSlice) * 1000));
    return interrupted == 0;
}

bool fail(const zel::String& error) {
    std::fprintf(stderr, "wingtally-standin: %s\n", error.c_str());
    return false;
}

void say(const standin::CommandLine& line, const std::string& text) {
    if (line.quiet)
        return;
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

bool fly(const standin::CommandLine& line, const zel::String& mission,
         const standin::FlightOptions& options) {
    zel::String error;
    standin::FlightSummary summary;
    if (!standin::flyMission(line.dir, mission, options, error, &summary))
        return fail(error);
    say(line, standin::describe(summary));
    return true;
}

/// The mission that is meant, if there is one.
bool flyOnce(const standin::CommandLine& line) {
    const zel::String mission =
        line.mission.empty() ? standin::newestMission(line.dir) : line.mission;
    if (mission.empty())
        return fail(standin::missionsFolder(line.dir) + ": no mission lies there");
    return fly(line, mission, line.flight);
}

/// Until somebody interrupts. A refused mission ends it only where one flight was wanted.
bool watch(const standin::CommandLine& line) {
    standin::MissionWatch missions(line.dir);
    standin::FlightOptions options = line.flight;
    say(line, "Waiting for missions in " + std::string(standin::missionsFolder(line.dir).view()) +
                  " (Ctrl+C ends)\n");
    while (interrupted == 0) {
        const zel::String mission = missions.look();
        if (mission.empty()) {
            waitFor(LookPause);
            continue;
        }
        const bool flown = fly(line, mission, options);
        if (line.once)
            return flown;
        if (options.seed != 0 && ++options.seed == 0)
            options.seed = 1;
    }
    return true;
}

} // namespace

int main(int count, char** words) {
    standin::CommandLine line;
    std::string wrong;
    if (!standin::parseCommandLine(std::vector<std::string>(words + 1, words + count), line,
                                   wrong)) {
        std::fprintf(stderr, "wingtally-standin: %s\n%s", wrong.c_str(), standin::usage());
        return 2;
    }
    if (line.help) {
        std::fputs(standin::usage(), stdout);
        return 0;
    }
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    line.flight.wait = waitFor;
    zel::String error;
    if (!standin::makeSimulatorFolder(line.dir, error)) {
        fail(error);
        return 1;
    }
    if (line.watch)
        return watch(line) ? 0 : 1;
    if (line.fly)
        return flyOnce(line) ? 0 : 1;
    say(line, std::string(line.dir.view()) +
                  " is a simulator folder now: set rof.directory of wtysettings.ini to it, and "
                  "start again with --watch\n");
    return 0;
}
