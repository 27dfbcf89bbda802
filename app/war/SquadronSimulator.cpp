#include "app/war/SquadronSimulator.h"

#include "app/career/Bases.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/PilotLevel.h"
#include "app/career/UnitNames.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/Invitations.h"
#include "app/war/WarAdvance.h"

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
    return ::squadronStrength(*Database::instance(), squadron);
}

int32_t SquadronSimulator::pickInvitationSquadron() {
    return ::pickInvitationSquadron(*Database::instance());
}

bool SquadronSimulator::invitationDue() { return ::invitationDue(*Database::instance()); }

void SquadronSimulator::advanceWar() {
    ::advanceWar(*Database::instance(), MissionGenerator::instance());
}
