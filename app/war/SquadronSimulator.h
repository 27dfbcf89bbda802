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

    /// Gives the squadron (index) an airfield of its side; an index out of range changes nothing.
    static void assignBase(int32_t squadron, bool allied, bool mayDrawChannel);
    /// The name of a unit by its six-digit number; "(number)" for an unknown one.
    static zel::String squadronDisplayName(int32_t id);
    /// Whether that number is a known unit's.
    static bool hasDisplayName(int32_t id);
    /// The six-digit number of a squadron file's unit; -1 for an index out of range.
    static int32_t squadronNumber(int32_t fileIndex);
    /// Weighted victories of the squadron's five best pilots; 0 for an index out of range.
    static float squadronStrength(int32_t squadron);
    /// 1 (novice) to 4 (ace), from his skill (0 to 10), victories and missions.
    static int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions);
    /// The next invitation falls due that many months from now.
    static void scheduleInvitation(int32_t monthsAhead);
    /// Index of the best squadron that would take the player; -1 for none.
    static int32_t pickInvitationSquadron();
    /// Whether an invitation waits for an answer.
    static bool invitationDue();
    /// Moves the war on by one period.
    static void advanceWar();
};
