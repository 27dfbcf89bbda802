#include "standin/fight/Skill.h"

#include <algorithm>

namespace standin {

namespace {

// The shares are tuned so that a fight of two flights costs each side about every third plane.
// clang-format off
constexpr Skill Skills[] = {
    // turn  cone   range  aim   aware  decide caution
    {0.93,   4.5,   210,  0.27,  0.80,  0.4,  0.95}, // the human
    {0.62,   6.5,   280,  0.08,  0.12,  1.2,  0.60},
    {0.78,   5.5,   240,  0.17,  0.33,  0.8,  0.80},
    {0.90,   4.5,   210,  0.27,  0.55,  0.5,  0.95},
    {0.98,   4.0,   180,  0.38,  0.75,  0.4,  1.00},
};
// clang-format on

} // namespace

const Skill& skillOf(int32_t level) { return Skills[std::clamp(level, 0, 4)]; }

} // namespace standin
