#include "app/career/PilotLevel.h"

#include <algorithm>
#include <iterator>

namespace {

enum Level : int32_t { Novice = 1, Trained = 2, Veteran = 3, Ace = 4 };

/// What a pilot's victories and missions are divided by, for each skill from 0 on.
struct Divisors {
    int32_t shotdowns, missions;
};
constexpr Divisors DivisorsOfSkill[] = {{3, 15}, {3, 12}, {3, 11}, {3, 10}, {3, 9}, {3, 8},
                                        {3, 7},  {2, 6},  {2, 5},  {1, 5},  {1, 4}};
constexpr auto LastSkill = static_cast<int32_t>(std::size(DivisorsOfSkill)) - 1;

// The least sum of the quotients that makes the level certain.
constexpr int32_t ValueOfAce = 5;
constexpr int32_t ValueOfVeteran = 3;

/// From that skill on, this many missions make a pilot experienced.
struct Experience {
    int32_t skill, missions;
};
constexpr Experience Experiences[] = {{0, 8}, {1, 6}, {2, 4}, {3, 3}, {5, 2}, {7, 1}};
constexpr int32_t VictoriesOfVeteran = 2; // if he is experienced

bool isExperienced(int32_t skill, int32_t missions) {
    return std::any_of(std::begin(Experiences), std::end(Experiences), [&](const Experience& row) {
        return skill >= row.skill && missions >= row.missions;
    });
}

} // namespace

int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    skill = std::clamp(skill, 0, LastSkill);
    const Divisors& divisors = DivisorsOfSkill[skill];
    const int32_t value = shotdowns / divisors.shotdowns + missions / divisors.missions;
    if (value >= ValueOfAce)
        return Ace;
    if (value >= ValueOfVeteran || (shotdowns > 0 && value + 1 == ValueOfVeteran))
        return Veteran;
    const bool experienced = isExperienced(skill, missions);
    if (experienced && shotdowns >= VictoriesOfVeteran)
        return Veteran;
    return value >= Trained || shotdowns > 0 || experienced ? Trained : Novice;
}
