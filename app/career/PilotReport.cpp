#include "app/career/PilotReport.h"

#include <algorithm>
#include <limits>

#include "app/career/Database.h"

namespace {

uint16_t raised(uint16_t value, size_t by) {
    return static_cast<uint16_t>(
        std::min<size_t>(value + by, std::numeric_limits<uint16_t>::max()));
}

} // namespace

bool applyReports(const std::vector<PilotReport>& reports, Database& career) {
    bool any = false;
    for (const PilotReport& report : reports) {
        if (!career.isPilot(report.pilot))
            continue;
        any = true;
        Pilot& pilot = career.pilot(report.pilot);
        pilot.shotdowns = raised(pilot.shotdowns, report.kills.size());
        pilot.missions = raised(pilot.missions, 1);
        if (report.dead != 0)
            pilot.alive = 0;
    }
    return any;
}
