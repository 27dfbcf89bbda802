#include "app/career/Replacements.h"

#include <algorithm>

#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/NameLists.h"

namespace {

// Skill: a draw up to this, and one more for each 0 in a row of draws up to ExtraSkillDraw.
constexpr int32_t HighestSkill = 9;
constexpr int32_t ExtraSkillDraw = 3;

uint8_t drawSkill(zel::Random& random) {
    int32_t skill = random.getInt(0, HighestSkill);
    while (random.getInt(0, ExtraSkillDraw) == 0)
        ++skill;
    return static_cast<uint8_t>(std::min(skill, 255));
}

} // namespace

Pilot makeReplacement(Database& career, int32_t squadron) {
    const uint16_t nation = career.squadron(squadron).nation;
    Pilot made = blank<Pilot>();
    zel::copyText(made.name, drawPilotName(career, nation));
    made.squadron = squadron;
    made.alive = 1;
    made.nation = nation;
    return made;
}

void fillVacantSlots(Database& career, int32_t squadron) {
    Squadron& filled = career.squadron(squadron);
    for (int32_t slot = 0; slot < filled.pilotCount; ++slot) {
        const int32_t leaving = filled.slots[slot];
        if (!career.isPilot(leaving) || career.pilot(leaving).alive != 0)
            continue;
        Pilot made = makeReplacement(career, squadron);
        made.skill = drawSkill(career.random);
        const int32_t coming = career.addPilot(made);
        const bool succeeds = leaving == career.playerPilot;
        if (succeeds)
            career.playerPilot = coming;
        filled.slots[slot] = coming;
        if (career.observer == nullptr)
            continue;
        career.observer->onPosting(
            career, {PostingKind::Joined, PostingCause::Replacement, coming, -1, leaving, {}});
        if (succeeds)
            career.observer->onPosting(
                career,
                {PostingKind::Succeeded, PostingCause::Replacement, coming, -1, leaving, {}});
    }
}
