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

    /// Gives a squadron one of its side's airfields, on the Channel map one time in five if that
    /// may be drawn; the player's own squadron stays on a map that his preferences allow.
    static void assignBase(int32_t squadron, bool allied, bool mayDrawChannel);
    /// Moves the player's squadron if it stands on a map that his preferences have switched off.
    static void keepPlayerOnAllowedMap();

    /// The name of a unit by its number, such as "Jasta 11" for 501011; "(number)" for one that no
    /// range holds.
    static zel::String squadronDisplayName(int32_t id);
    static bool hasDisplayName(int32_t id);
    /// The number of a squadron file's unit; -1 for an index out of range.
    static int32_t squadronNumber(int32_t fileIndex);
    /// Weighted sum of the victories of a squadron's five best, the best counting five times.
    static float squadronStrength(int32_t squadron);
    /// 1 (novice) to 4 (ace): how the simulator flies a pilot, and his class in unseen fights.
    static int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions);

    // Invitations.cpp

    /// The next invitation falls due that many months from now; none is pending.
    static void scheduleInvitation(int32_t monthsAhead);
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
