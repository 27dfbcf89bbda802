#include "app/report/ReportText.h"

#include "app/career/Nation.h"
#include "app/career/Wording.h"
#include "app/report/LogWatch.h"

namespace {

constexpr float LeastDamage = 0.01F;
constexpr float DestroyedPercent = 50.0F;

} // namespace

zel::String fateText(const PilotReport& pilot) {
    const bool landed = pilot.flightStatus == 1;
    if (pilot.killCount != 0)
        return textOf(wording::DiedInTheAir);
    if (pilot.dead != 0)
        return textOf(wording::CrashedAndDied);
    if (pilot.injuryPercent > 50)
        return textOf(wording::SevereInjuries);
    if (pilot.injuryPercent > 25)
        return textOf(wording::Injured);
    if (pilot.injuryPercent > 0)
        return textOf(wording::SlightInjuries);
    if (pilot.damage >= LeastDamage) {
        const bool destroyed = pilot.damage * 100 >= DestroyedPercent;
        if (landed)
            return textOf(destroyed ? wording::LandedDestroyed : wording::LandedDamaged);
        return textOf(destroyed ? wording::Destroyed : wording::Damaged);
    }
    if (landed)
        return textOf(wording::Escaped);
    return textOf(pilot.shotdownBy >= 0 ? wording::Survived : wording::NoDamage);
}

zel::String causeText(const PilotReport& pilot, const std::vector<PilotReport>& pilots) {
    if (pilot.shotDown == 0)
        return {};
    const bool dead = pilot.dead != 0;
    if (pilot.shotdownBy >= 0)
        return textOf(dead ? wording::KilledBy : wording::ShotdownBy,
                      {reportedName(pilots[pilot.shotdownBy])});
    if (pilot.shotdownByOwn >= 0)
        return textOf(dead ? wording::KilledByOwn : wording::ShotdownByOwn,
                      {reportedName(pilots[pilot.shotdownByOwn])});
    return textOf(wording::Crashed);
}

ReportColumns combatReportColumns(const std::vector<PilotReport>& pilots) {
    ReportColumns columns;
    for (const PilotReport& pilot : pilots) {
        if (pilot.name.empty())
            continue;
        const bool isLeft = isSameSide(pilot.country, pilots.front().country);
        ReportEntry entry;
        entry.pilot =
            textOf(wording::ReportedPilot, {reportedName(pilot), int32_t(pilot.kills.size())});
        entry.fate = fateText(pilot);
        entry.cause = causeText(pilot, pilots);
        entry.isPlayer = pilot.human != 0;
        (isLeft ? columns.left : columns.right).push_back(entry);
        if (entry.isPlayer && pilot.pilot < 0)
            columns.note = textOf(wording::UnknownPlayer, {pilot.name});
    }
    return columns;
}

const Wording& newsWording(LogState state) {
    return wording::LogNewsTexts[static_cast<size_t>(state)];
}
