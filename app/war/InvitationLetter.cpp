#include "app/war/InvitationLetter.h"

#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/UnitNames.h"
#include "app/war/Invitations.h"

namespace {

// An answer puts the next invitation off by months: a draw from a lower to an upper bound, which
// are draws themselves, but for the upper one of who accepts.
constexpr int32_t LeastLower = 1;
constexpr int32_t MostLower = 3;
constexpr int32_t LeastUpper = 3;
constexpr int32_t MostUpper = 6;

/// "A", "A and B", "A, B and C".
zel::String enumeration(const std::vector<zel::String>& names) {
    zel::String text;
    for (size_t i = 0; i < names.size(); ++i) {
        if (i > 0)
            text += i + 1 == names.size() ? " and " : ", ";
        text += names[i];
    }
    return text;
}

zel::String acesSentence(const std::vector<zel::String>& aces) {
    if (aces.empty())
        return {};
    if (aces.size() == 1)
        return "The squadron also includes the ace " + aces.front() + ". ";
    return "The squadron also includes the following aces: " + enumeration(aces) + ". ";
}

} // namespace

bool InvitationLetter::open(Database& career) {
    letter = "";
    roster.clear();
    invitationDue(career);
    if (career.invitationSquadron < 0)
        return false;
    roster = career.squadronRoster(career.invitationSquadron);
    write(career);
    return true;
}

void InvitationLetter::write(const Database& career) {
    const auto nameOf = [&](int32_t pilot) {
        return zel::String(zel::arrayText(career.pilot(pilot).name));
    };
    // sic: the squadron's index; the first squadrons' files are their own indices.
    const int32_t number = unitNumber(career, career.invitationSquadron);
    const bool hasName = hasUnitName(number);
    const zel::String name = unitName(number);
    if (roster.empty())
        letter = "You have been invited to join " + (hasName ? name : "a new squadron") + ". ";
    else
        letter = nameOf(roster.front()) + " " + "has invited you to join " +
                 (hasName ? name : zel::String("his squadron")) + ". ";

    std::vector<zel::String> aces;
    int32_t shotdowns = 0;
    for (size_t i = 0; i < roster.size(); ++i) {
        const Pilot& pilot = career.pilot(roster[i]);
        shotdowns += pilot.shotdowns;
        if (i > 0 && pilot.shotdowns >= AceShotdowns)
            aces.push_back(nameOf(roster[i]));
    }
    letter += acesSentence(aces);
    letter += zel::String("The pilots of the new squadron have a total number of ") + shotdowns +
              " shotdowns. ";
    letter += "Will you accept the invitation?";
}

bool InvitationLetter::accept(Database& career) {
    if (roster.empty())
        return false;
    career.swapPilots(career.playerPilot, roster.back());
    roster.clear(); // answered
    const int32_t lower = random.getInt(LeastLower, MostLower);
    scheduleInvitation(career, random.getInt(lower, MostUpper));
    return true;
}

void InvitationLetter::refuse(Database& career) {
    career.previousInvitation = career.invitationSquadron;
    const int32_t upper = random.getInt(LeastUpper, MostUpper);
    const int32_t lower = random.getInt(LeastLower, MostLower);
    scheduleInvitation(career, random.getInt(lower, upper));
}
