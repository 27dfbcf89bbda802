#include "app/career/PilotReport.h"

#include <algorithm>
#include <limits>

#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/GroundObjects.h"

namespace {

uint16_t raised(uint16_t value, size_t by) {
    return static_cast<uint16_t>(
        std::min<size_t>(value + by, std::numeric_limits<uint16_t>::max()));
}

const zel::String& aircraftOf(const PilotReport& report) {
    return report.plannedType.empty() ? report.type : report.plannedType;
}

/// Runs before anybody is marked dead.
void reportVictories(const std::vector<PilotReport>& reports, const Database& career, bool isSeen) {
    for (const PilotReport& report : reports) {
        if (!career.isPilot(report.pilot))
            continue;
        for (const int32_t kill : report.kills) {
            const PilotReport& fallen = reports[kill];
            const bool isKnown = career.isPilot(fallen.pilot);
            Victory victory;
            victory.victor = report.pilot;
            victory.victim = isKnown ? fallen.pilot : -1;
            if (!isKnown)
                victory.victimName = reportedName(fallen);
            victory.victorAircraft = aircraftOf(report);
            victory.victimAircraft = aircraftOf(fallen);
            victory.hasDied =
                fallen.dead != 0 && (!isKnown || career.pilot(fallen.pilot).alive != 0);
            victory.isSeen = isSeen;
            career.observer->onVictory(career, victory);
        }
    }
}

Posting deathOf(const PilotReport& report, const std::vector<PilotReport>& reports,
                const Database& career) {
    Posting death;
    death.kind = PostingKind::Died;
    death.pilot = report.pilot;
    const int32_t by = report.shotdownBy >= 0 ? report.shotdownBy : report.shotdownByOwn;
    // If he did the last damage himself, nobody is credited.
    if (by < 0 || &reports[by] == &report) {
        death.cause = PostingCause::Crash;
        return death;
    }
    death.cause = report.shotdownBy >= 0 ? PostingCause::ShotDown : PostingCause::OwnSide;
    const PilotReport& killer = reports[by];
    if (career.isPilot(killer.pilot))
        death.other = killer.pilot;
    else
        death.otherName = reportedName(killer);
    return death;
}

} // namespace

zel::String reportedName(const PilotReport& report) {
    const Wording* const ground = groundObject(report.type);
    return ground != nullptr ? textOf(*ground) : report.name;
}

bool applyReports(const std::vector<PilotReport>& reports, Database& career, bool isSeen) {
    if (career.observer != nullptr)
        reportVictories(reports, career, isSeen);
    bool any = false;
    for (const PilotReport& report : reports) {
        if (!career.isPilot(report.pilot))
            continue;
        any = true;
        Pilot& pilot = career.pilot(report.pilot);
        pilot.shotdowns = raised(pilot.shotdowns, report.kills.size());
        pilot.missions = raised(pilot.missions, 1);
        const bool dies = report.dead != 0 && pilot.alive != 0;
        if (report.dead != 0)
            pilot.alive = 0;
        if (dies && career.observer != nullptr)
            career.observer->onPosting(career, deathOf(report, reports, career));
    }
    return any;
}
