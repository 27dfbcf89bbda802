#include "app/career/SquadronRoster.h"

#include <algorithm>

#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"

namespace {

bool isBetter(const Pilot& a, const Pilot& b) {
    const bool aliveA = a.alive != 0;
    const bool aliveB = b.alive != 0;
    if (aliveA != aliveB)
        return aliveA;
    if (a.shotdowns != b.shotdowns)
        return a.shotdowns > b.shotdowns;
    if (a.missions != b.missions)
        return a.missions > b.missions;
    return a.skill > b.skill;
}

/// The slot that holds the pilot; null for none.
int32_t* slotOf(Squadron& squadron, int32_t pilot) {
    const auto slot = std::find(std::begin(squadron.slots), std::end(squadron.slots), pilot);
    return slot != std::end(squadron.slots) ? slot : nullptr;
}

} // namespace

bool swapPilots(Database& career, int32_t first, int32_t second, PostingCause cause) {
    if (!career.isPilot(first) || !career.isPilot(second))
        return false;
    Pilot& a = career.pilot(first);
    Pilot& b = career.pilot(second);
    if (a.squadron == b.squadron || !career.isSquadron(a.squadron) ||
        !career.isSquadron(b.squadron))
        return false;
    int32_t* slotA = slotOf(career.squadron(a.squadron), first);
    int32_t* slotB = slotOf(career.squadron(b.squadron), second);
    if (slotA == nullptr || slotB == nullptr)
        return false;
    std::swap(a.squadron, b.squadron);
    *slotA = second;
    *slotB = first;
    // Moving a dead pilot changes only the records.
    const auto report = [&](int32_t moved, PostingCause why, int32_t from, int32_t other) {
        if (career.observer != nullptr && career.pilot(moved).alive != 0)
            career.observer->onPosting(career,
                                       {PostingKind::Transferred, why, moved, from, other, {}});
    };
    report(first, cause, b.squadron, -1);
    report(second, PostingCause::Exchange, a.squadron, first);
    return true;
}

std::vector<int32_t> squadronRoster(const Database& career, int32_t squadron) {
    std::vector<int32_t> roster;
    if (!career.isSquadron(squadron))
        return roster;
    for (const int32_t slot : career.squadron(squadron).slots)
        if (career.isPilot(slot))
            roster.push_back(slot);
    std::stable_sort(roster.begin(), roster.end(), [&](int32_t a, int32_t b) {
        return isBetter(career.pilots[a], career.pilots[b]);
    });
    return roster;
}
