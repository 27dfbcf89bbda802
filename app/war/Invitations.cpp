#include "app/war/Invitations.h"

#include <algorithm>

#include "app/career/Aircraft.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/UnitNames.h"
#include "engine/core/Log.h"
#include "engine/core/Random.h"

namespace {

constexpr int32_t Tries = 600;
// A squadron accepts the player up to this strength, plus one for each of his victories, plus
// another one for each of the first five.
constexpr int32_t StrengthOpenToAll = 5;
constexpr int32_t VictoriesCountedTwice = 5;
constexpr int32_t PilotsOfStrength = 5;   // the best counts five times, the next four times ...
constexpr float StrengthDivisor = 14.0F;  // sic: the weights add up to 15
constexpr float BonusForName = 100000.0F; // named squadrons beat generated ones
constexpr float BonusForPlane = 10000.0F; // and among these, those that fly the day's type

/// Whether the squadron would accept the player at all: a stronger one demands more.
bool wouldTake(const Pilot& player, float strength) {
    const int32_t limit = StrengthOpenToAll + player.shotdowns +
                          std::min<int32_t>(player.shotdowns, VictoriesCountedTwice);
    return strength <= static_cast<float>(limit);
}

} // namespace

float squadronStrength(const Database& career, int32_t squadron) {
    const std::vector<int32_t> roster = career.squadronRoster(squadron);
    const int32_t best = std::min<int32_t>(static_cast<int32_t>(roster.size()), PilotsOfStrength);
    int32_t sum = 0;
    for (int32_t i = 0; i < best; ++i) {
        const int32_t pilot = roster[i];
        sum += career.pilot(pilot).shotdowns * (PilotsOfStrength - i);
    }
    return static_cast<float>(sum) / StrengthDivisor;
}

bool invitationDue(Database& career) {
    zel::console("NEXT INVITATION: " + yearAndMonth(career.invitationYear, career.invitationMonth));
    const auto year = static_cast<uint32_t>(career.year);
    const auto dueYear = static_cast<uint32_t>(career.invitationYear);
    if (year < dueYear || (year == dueYear && static_cast<uint32_t>(career.month) <
                                                  static_cast<uint32_t>(career.invitationMonth)))
        return false;
    zel::console("CURRENT DATE: " + yearAndMonth(career.year, career.month));
    if (career.invitationSquadron >= 0)
        return true;
    if (career.invitationSquadron != NoSearch) {
        const int32_t found = pickInvitationSquadron(career);
        if (found >= 0) {
            career.invitationSquadron = found;
            return true;
        }
    }
    const int32_t latest = zel::random(LeastLatestMonth, MostLatestMonth);
    scheduleInvitation(career, zel::random(1, latest));
    return false;
}

int32_t pickInvitationSquadron(const Database& career) {
    const Pilot& player = career.player();
    const int32_t last = career.squadronCount() - 1;
    float bestScore = -1.0F;
    int32_t best = -1;
    for (int32_t i = 0; i < Tries; ++i) {
        int32_t candidate = zel::random(0, last);
        if (i == 0)
            candidate = player.squadron; // it sets the standard
        const Squadron& squadron = career.squadron(candidate);
        if (squadron.nation != player.nation || candidate == career.previousInvitation)
            continue;
        const float strength = squadronStrength(career, candidate);
        if (!wouldTake(player, strength))
            continue;
        float score = strength;
        // sic: the squadron's index; the first squadrons' files are their own indices.
        if (hasUnitName(unitNumber(career, candidate)))
            score += BonusForName;
        const zel::String plane =
            chooseNationPlane(player.nation, career.year, career.month, career.day);
        if (career.hasAircraft(zel::String(zel::arrayText(squadron.key)), plane))
            score += BonusForPlane;
        if (score > bestScore) {
            bestScore = score;
            best = candidate;
        }
    }
    return best == player.squadron ? -1 : best;
}
