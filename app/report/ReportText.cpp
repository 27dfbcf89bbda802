#include "app/report/ReportText.h"

#include "app/career/Nation.h"

namespace {

constexpr float LeastDamage = 0.01F;
constexpr float DestroyedPercent = 50.0F;

} // namespace

zel::String fateText(const PilotReport& pilot) {
    const bool landed = pilot.flightStatus == 1;
    if (pilot.killCount != 0)
        return "Died in the air";
    if (pilot.dead != 0)
        return "Crashed and died";
    if (pilot.injuryPercent > 50)
        return "Severe injuries";
    if (pilot.injuryPercent > 25)
        return "Injured";
    if (pilot.injuryPercent > 0)
        return "Slightly injured";
    if (pilot.damage >= LeastDamage) {
        const bool destroyed = pilot.damage * 100 >= DestroyedPercent;
        if (landed)
            return destroyed ? "Landed with destroyed plane" : "Landed with damaged plane";
        return destroyed ? "Destroyed plane" : "Damaged plane";
    }
    if (landed)
        return "Escaped and landed";
    return pilot.shotdownBy >= 0 ? "Survived without injuries" : "No damage";
}

zel::String causeText(const PilotReport& pilot, const std::vector<PilotReport>& pilots) {
    if (pilot.shotDown == 0)
        return {};
    const bool dead = pilot.dead != 0;
    if (pilot.shotdownBy >= 0)
        return (dead ? "Killed By: " : "Shotdown By: ") +
               pilots[static_cast<size_t>(pilot.shotdownBy)].name;
    if (pilot.shotdownByOwn >= 0)
        return (dead ? "Killed By Own: " : "Shotdown By Own: ") +
               pilots[static_cast<size_t>(pilot.shotdownByOwn)].name;
    return "Crashed";
}

ReportColumns combatReportColumns(const std::vector<PilotReport>& pilots) {
    ReportColumns columns;
    for (const PilotReport& pilot : pilots) {
        if (pilot.name.empty())
            continue;
        const bool isLeft = isSameSide(pilot.country, pilots.front().country);
        ReportEntry entry;
        entry.pilot = pilot.name + " - " + "Kills: " + static_cast<int32_t>(pilot.kills.size());
        entry.fate = fateText(pilot);
        entry.cause = causeText(pilot, pilots);
        entry.isPlayer = pilot.human != 0;
        (isLeft ? columns.left : columns.right).push_back(entry);
    }
    return columns;
}
