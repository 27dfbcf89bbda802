#pragma once

#include <cstdint>

namespace standin {

/// The abilities of a pilot of one level.
struct Skill {
    double turn;      // fraction of the plane's turn rate
    double cone;      // degrees off the aim at which he opens fire
    double range;     // metres at which he opens fire
    double aim;       // hit chance of a bullet at 100 m
    double awareness; // chance to notice an attacker at a decision
    double decision;  // seconds between decisions
    double caution;   // fraction of the height left after a dive
};

/// level 1 to 4; 0, the human, flies like 3 but watches his tail better.
const Skill& skillOf(int32_t level);

} // namespace standin
