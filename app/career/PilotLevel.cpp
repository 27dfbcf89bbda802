#include "app/career/PilotLevel.h"

#include <algorithm>

namespace {

/// What a pilot's victories and missions are worth by his skill, 0 to 10.
int32_t baseLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    struct Divisors {
        int32_t shotdowns, missions;
    };
    constexpr Divisors BySkill[] = {{3, 15}, {3, 12}, {3, 11}, {3, 10}, {3, 9}, {3, 8},
                                    {3, 7},  {2, 6},  {2, 5},  {1, 5},  {1, 4}};
    const Divisors& divisors = BySkill[skill];
    return shotdowns / divisors.shotdowns + missions / divisors.missions;
}

bool isExperienced(int32_t skill, int32_t missions) {
    return missions > 7 || (skill > 0 && missions > 5) || (skill > 1 && missions > 3) ||
           (skill > 2 && missions > 2) || (skill > 4 && missions > 1) ||
           (skill > 6 && missions > 0);
}

} // namespace

int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    skill = std::clamp(skill, 0, 10);
    int32_t value = baseLevel(skill, shotdowns, missions);
    if (value >= 5)
        return 4;
    if (value >= 3)
        return 3;
    if (shotdowns > 0) {
        ++value;
        if (value == 3)
            return 3;
        if (value == 1)
            value = 2;
    }
    const bool experienced = isExperienced(skill, missions);
    if (shotdowns == 0 && experienced) // value is 0, 1 or 2 here
        value = 2;
    if (shotdowns >= 2 && experienced)
        value = 3;
    return std::max(value, 1);
}
