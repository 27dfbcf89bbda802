#include "standin/NewMissions.h"

#include "standin/MissionWatch.h"

namespace standin {

namespace {

constexpr double LookPause = 0.5; // seconds between two checks for missions

} // namespace

void flyNewMissions(const zel::String& dir, FlightOptions options,
                    const std::function<bool(const MissionOutcome&)>& after) {
    MissionWatch missions(dir);
    for (bool goesOn = true; goesOn;) {
        const zel::String mission = missions.poll();
        if (mission.empty()) {
            goesOn = options.wait(LookPause);
            continue;
        }
        MissionOutcome outcome;
        outcome.mission = mission;
        outcome.isFlown = flyMission(dir, mission, options, outcome.finding, &outcome.summary);
        goesOn = after(outcome) && options.wait(0);
        if (options.seed != 0 && ++options.seed == 0)
            options.seed = 1;
    }
}

} // namespace standin
