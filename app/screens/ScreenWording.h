#pragma once

#include "app/career/Wording.h"

/// The two texts of a switch; "$1" is the name of what it turns.
struct SwitchForms {
    Wording on, off;
};

// clang-format off
namespace wording {

inline constexpr Wording MovedOn         {1102, "The war has moved on to $1."}; // the date
inline constexpr SwitchForms Sound       {{1404, "Sound: On"}, {1405, "Sound: Off"}};
inline constexpr SwitchForms FullScreen  {{1406, "Full screen: On"}, {1407, "Full screen: Off"}};
inline constexpr SwitchForms WesternFront{{1510, "Western Front: On"}, {1511, "Western Front: Off"}};
inline constexpr SwitchForms TheChannel  {{1512, "The Channel: On"}, {1513, "The Channel: Off"}};
inline constexpr SwitchForms Plane       {{1610, "$1: On"}, {1611, "$1: Off"}};

} // namespace wording
// clang-format on
