#pragma once

#include "app/career/Wording.h"

// What the orders say about the weather. $1 is the time of day.
// clang-format off
namespace wording {

inline constexpr Wording ClearAndCalm    {4455, "At $1 the sky is clear and the air is calm."};
inline constexpr Wording MistAndCalm     {4456, "At $1 there is mist, and the air is calm."};
inline constexpr Wording ClearAndWind    {4457, "At $1 the sky is clear, with a wind of $2 m/s from $3 degrees."};
inline constexpr Wording MistAndWind     {4458, "At $1 there is mist, with a wind of $2 m/s from $3 degrees."};

} // namespace wording
// clang-format on
