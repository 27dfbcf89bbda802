#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "engine/core/System.h"
#include "standin/NewMissions.h"
#include "standin/StandIn.h"
#include "tools/common/Print.h"
#include "tools/standin/CommandLine.h"

namespace {

constexpr double SleepSlice = 0.1; // seconds until an interrupt is noticed, at most

volatile std::sig_atomic_t interrupted = 0;

/// The first signal ends the next wait, a second one ends the program.
void interrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

bool waitFor(double seconds) {
    for (; seconds > 0 && interrupted == 0; seconds -= SleepSlice)
        zel::system::sleepMilliseconds(static_cast<uint32_t>(std::min(seconds, SleepSlice) * 1000));
    return interrupted == 0;
}

bool fail(const tools::Finding& finding) {
    tools::print(stderr, "wingtally-standin: " + finding.text() + "\n");
    return false;
}

void say(const standin::StandInCall& call, const std::string& text) {
    if (call.quiet)
        return;
    tools::print(stdout, text);
    std::fflush(stdout);
}

bool report(const standin::StandInCall& call, const standin::MissionOutcome& outcome) {
    if (!outcome.isFlown)
        return fail(outcome.finding);
    say(call, standin::describe(outcome.summary));
    return true;
}

/// Flies the mission that the call names, or the newest one.
bool flyOnce(const standin::StandInCall& call) {
    const zel::String mission =
        call.mission.empty() ? standin::newestMission(call.dir) : zel::String(call.mission);
    if (mission.empty())
        return fail({standin::missionsFolder(call.dir), 0, "there is no mission"});
    standin::MissionOutcome outcome;
    outcome.isFlown =
        standin::flyMission(call.dir, mission, call.flight, outcome.finding, &outcome.summary);
    return report(call, outcome);
}

/// Flies until interrupted. A refused mission ends it only if the call requests a single flight.
bool watch(const standin::StandInCall& call) {
    say(call, "Waiting for missions in " + std::string(standin::missionsFolder(call.dir).view()) +
                  " (Ctrl+C ends)\n");
    bool isWell = true;
    standin::flyNewMissions(call.dir, call.flight, [&](const standin::MissionOutcome& outcome) {
        const bool isFlown = report(call, outcome);
        isWell = isFlown || !call.once;
        return !call.once;
    });
    return isWell;
}

} // namespace

int main(int count, char** words) {
    zel::system::beginProgram();
    standin::StandInCall call;
    const tools::CallReading reading =
        standin::readStandInCall(tools::argumentsOf(count, words), call);
    if (const std::optional<int> status = tools::answer(reading))
        return *status;
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    call.flight.wait = waitFor;
    tools::Finding finding;
    if (!standin::makeSimulatorFolder(call.dir, finding)) {
        fail(finding);
        return 1;
    }
    if (call.watch)
        return tools::exitStatus(watch(call) ? 0 : 1);
    if (call.fly)
        return tools::exitStatus(flyOnce(call) ? 0 : 1);
    say(call, call.dir + " is a simulator folder now: set rof.directory of wtysettings.ini to it, "
                         "and start again with --watch\n");
    return tools::exitStatus(0);
}
