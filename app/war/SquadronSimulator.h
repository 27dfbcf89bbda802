#pragma once

#include <cstdint>

#include "app/career/Calendar.h"
#include "engine/core/String.h"

class Database;

/// What the passing war does to squadrons: their bases and names, the player's invitations, and the
/// periods in which the date moves on. No state of its own; everything works on the one Database
/// and on the engine's shared generator.
class SquadronSimulator {
public:
    virtual ~SquadronSimulator() = default;

    // Forwards to app/career: Bases.h, UnitNames.h, PilotLevel.h, InvitationSchedule.h

    static void assignBase(int32_t squadron, bool allied, bool mayDrawChannel);
    static zel::String squadronDisplayName(int32_t id);
    static bool hasDisplayName(int32_t id);
    static int32_t squadronNumber(int32_t fileIndex);
    static int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions);
    static void scheduleInvitation(int32_t monthsAhead);

    /// Weighted sum of the victories of a squadron's five best, the best counting five times.
    static float squadronStrength(int32_t squadron);

    // Invitations.cpp

    /// The best squadron of the player's nation out of 600 draws that would have him; -1 for none,
    /// and when his own is the best.
    static int32_t pickInvitationSquadron();
    /// Whether an invitation is pending, with invitationSquadron set. Looks for one when the month
    /// has come, and puts the month off when none is found.
    static bool invitationDue();

    // WarAdvance.cpp

    /// One period of the war: the date moves on, the unseen missions are fought, some squadrons
    /// change base, the history is applied. Without a mission generator no missions are fought.
    static void advanceWar();
};

/// Told of the progress of a long stretch of war, to show it. It may not touch the career.
class WarObserver {
public:
    virtual ~WarObserver() = default;
    /// After each unseen mission: the date reached, and the share of the present stretch that is
    /// done, 0 to 1.
    virtual void onWarProgress(const Calendar& date, float share) = 0;
};

/// Null, as at the start, for nobody. The observer must outlive its registration.
void setWarObserver(WarObserver* observer);
