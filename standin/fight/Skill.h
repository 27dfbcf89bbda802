#pragma once

#include <cstdint>

namespace standin {

/// What a pilot of a level can do.
struct Skill {
    double turn;      // share of what his plane can turn
    double cone;      // degrees off the aim at which he opens fire
    double range;     // metres at which he opens fire
    double aim;       // chance of a bullet to hit at 100 m
    double awareness; // chance to notice an attacker at a decision
    double decision;  // seconds between decisions
    double caution;   // share of the height that a dive should keep
};

/// level 1 to 4; 0, the human, flies like 3 but watches his tail better.
const Skill& skillOf(int32_t level);

} // namespace standin
