#pragma once

#include "app/career/Wording.h"

// What the sketch of a fight says about the log's events. $1 did it to $2. Of three forms, the
// second is for the player as the one who did it, the third for the player as the other one.
// clang-format off
namespace wording {

using SketchForms = Wording[3];

inline constexpr Wording InTheAirNear   {3800, "In the air near $1"};
inline constexpr Wording InTheAir       {3801, "In the air"};
inline constexpr Wording TakeOffNear    {3802, "Take-off near $1"};
inline constexpr Wording TakeOff        {3803, "Take-off"};
inline constexpr SketchForms SketchHits   = {{3804, "$1 hits $2 $3"}, {3805, "You hit $2 $3"}, {3806, "$1 hits you $3"}}; // times
inline constexpr SketchForms SketchDamages= {{3807, "$1 damages $2"}, {3808, "You damage $2"}, {3809, "$1 damages your plane"}};
inline constexpr Wording IsDamaged[]      = {{3810, "$1 is damaged"}, {3811, "Your plane is damaged"}};
inline constexpr SketchForms BringsDown   = {{3812, "$1 brings down $2"}, {3813, "You bring down $2"}, {3814, "$1 brings you down"}};
inline constexpr SketchForms FallsToOwn   = {{3815, "$2 falls to his own side: $1"}, {3816, "$2, of your own side, falls to you"}, {3817, "You fall to your own side: $1"}};
inline constexpr Wording Crashes[]        = {{3818, "$1 crashes"}, {3819, "You crash"}};
inline constexpr Wording LandsNear[]      = {{3820, "$1 lands near $2"}, {3821, "You land near $2"}};
inline constexpr Wording Lands[]          = {{3822, "$1 lands"}, {3823, "You land"}};
inline constexpr Wording EndsInTheAir   {3824, "Left in the air"};
inline constexpr Wording NumberedLine   {3825, "$1. $2  $3"}; // number, time, text
inline constexpr Wording UnnumberedLine {3826, "$1  $2"};

} // namespace wording
// clang-format on
