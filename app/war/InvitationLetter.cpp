#include "app/war/InvitationLetter.h"

#include "app/career/CareerEvents.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/SquadronRoster.h"
#include "app/career/UnitNames.h"
#include "app/career/Wording.h"
#include "app/war/Invitations.h"

namespace {

// An answer postpones the next invitation by months, drawn between a lower and an upper bound. The
// bounds are draws too, except for the upper one after an acceptance.
constexpr int32_t LeastLower = 1;
constexpr int32_t MostLower = 3;
constexpr int32_t LeastUpper = 3;
constexpr int32_t MostUpper = 6;

/// Both empty where there is none.
zel::String firstSentence(const zel::String& leader, const zel::String& squadron) {
    if (leader.empty())
        return squadron.empty() ? textOf(wording::InvitedToANew)
                                : textOf(wording::Invited, {squadron});
    return squadron.empty() ? textOf(wording::LeaderInvitesToHis, {leader})
                            : textOf(wording::LeaderInvites, {leader, squadron});
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
    letter = firstSentence(roster.empty() ? zel::String() : nameOf(roster.front()),
                           hasUnitName(number) ? unitName(number) : zel::String());
    const auto add = [&](const zel::String& sentence) { letter += " " + sentence; };

    std::vector<zel::String> aces;
    int32_t shotdowns = 0;
    for (size_t i = 0; i < roster.size(); ++i) {
        const Pilot& pilot = career.pilot(roster[i]);
        shotdowns += pilot.shotdowns;
        if (i > 0 && pilot.shotdowns >= AceShotdowns)
            aces.push_back(nameOf(roster[i]));
    }
    if (!aces.empty())
        add(textOf(aces.size() == 1 ? wording::OneAce : wording::Aces, {enumerated(aces)}));
    add(countText(wording::Shotdowns, shotdowns));
    add(textOf(wording::WillYouAccept));
}

bool InvitationLetter::accept(Database& career) {
    if (roster.empty())
        return false;
    swapPilots(career, career.playerPilot, roster.back(), PostingCause::Invitation);
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
