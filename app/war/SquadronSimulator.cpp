#include "app/war/SquadronSimulator.h"

#include <algorithm>

#include "app/career/Bases.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/PilotLevel.h"
#include "app/career/UnitNames.h"

void SquadronSimulator::assignBase(int32_t squadron, bool allied, bool mayDrawChannel) {
    ::assignBase(*Database::instance(), squadron, allied, mayDrawChannel);
}

zel::String SquadronSimulator::squadronDisplayName(int32_t id) { return unitName(id); }

bool SquadronSimulator::hasDisplayName(int32_t id) { return hasUnitName(id); }

int32_t SquadronSimulator::squadronNumber(int32_t fileIndex) {
    return unitNumber(*Database::instance(), fileIndex);
}

int32_t SquadronSimulator::pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    return ::pilotLevel(skill, shotdowns, missions);
}

void SquadronSimulator::scheduleInvitation(int32_t monthsAhead) {
    ::scheduleInvitation(*Database::instance(), monthsAhead);
}

float SquadronSimulator::squadronStrength(int32_t squadron) {
    const Database& career = *Database::instance();
    const std::vector<int32_t> roster = career.squadronRoster(squadron);
    const int32_t best = std::min<int32_t>(static_cast<int32_t>(roster.size()), 5);
    int32_t sum = 0;
    for (int32_t i = 0; i < best; ++i) {
        const int32_t pilot = roster[static_cast<size_t>(i)];
        sum += career.pilots[static_cast<size_t>(pilot)].shotdowns * (5 - i);
    }
    return static_cast<float>(sum) / 14.0F; // sic: the weights sum up to 15
}
