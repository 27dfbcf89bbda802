#pragma once

#include <cstdint>

#include "engine/core/String.h"

/// The war's operations on the running program's one Database and mission generator, for callers
/// that hold neither. Each forwards to the function that takes them: app/career/Bases.h,
/// UnitNames.h, PilotLevel.h and InvitationSchedule.h, app/war/Invitations.h and WarAdvance.h.
/// REQUIRES: a Database.
class SquadronSimulator {
public:
    virtual ~SquadronSimulator() = default;

    static void assignBase(int32_t squadron, bool allied, bool mayDrawChannel);
    static zel::String squadronDisplayName(int32_t id);
    static bool hasDisplayName(int32_t id);
    static int32_t squadronNumber(int32_t fileIndex);
    static float squadronStrength(int32_t squadron);
    static int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions);
    static void scheduleInvitation(int32_t monthsAhead);
    static int32_t pickInvitationSquadron();
    static bool invitationDue();
    static void advanceWar();
};
