#pragma once

#include "app/career/Wording.h"

/// The two texts of a switch; "$1" is the name of what it turns.
struct SwitchForms {
    Wording on, off;
};

// clang-format off
namespace wording {

inline constexpr Wording QuietLog        {920, "No new log for $1 min. If you have flown: was it WingtallyMission, and is mission_text_log = 1 in the simulator's data\\startup.cfg?"}; // minutes
inline constexpr Wording LooksForLog     {921, "Wingtally looks for the log every eight seconds."};
inline constexpr Wording LookedForLog    {922, "Last look for the log at $1. The next one follows within eight seconds."}; // the time of day
inline constexpr Wording PointerElsewhere{923, "Put the pointer on this window. Wingtally looks for the log only while it is there."};
inline constexpr Wording KeyboardElsewhere{924, "Click into this window. Wingtally looks for the log only while it has the keyboard."};
inline constexpr Wording MovedOn         {1102, "The war has moved on to $1."}; // the date
inline constexpr SwitchForms Sound       {{1404, "Sound: On"}, {1405, "Sound: Off"}};
inline constexpr SwitchForms FullScreen  {{1406, "Full screen: On"}, {1407, "Full screen: Off"}};
inline constexpr SwitchForms WesternFront{{1510, "Western Front: On"}, {1511, "Western Front: Off"}};
inline constexpr SwitchForms TheChannel  {{1512, "The Channel: On"}, {1513, "The Channel: Off"}};
inline constexpr SwitchForms Plane       {{1610, "$1: On"}, {1611, "$1: Off"}};

inline constexpr Wording ExampleFromTheRoot{2007, "rof.directory=/home/you/.wine/drive_c/Games/Rise of Flight"};
inline constexpr Wording MissionFaults[] = { // by MissionFault, from the first fault on; the file
    {2211, "The mission template can't be read: $1"},
    {2212, "The mission template is damaged: $1"},
    {2213, "No mission can be planned for to-day."},
    {2214, "This file could not be written: $1"},
    {2215, "The logs of the simulator can't be listed in this folder: $1"},
};
inline constexpr Wording EndMissing      {2511, "The end of the file is missing."};
inline constexpr Wording RepairCounts[] = { // in the order of CareerRepairs
    {2512, "References to squadron and pilot files that led nowhere: $1"},
    {2513, "Pilots without a squadron: $1"},
    {2514, "Wrong places in squadrons: $1"},
    {2515, "Impossible entries of an invitation: $1"},
    {2517, "Impossible names, nations and figures: $1"},
};
inline constexpr Wording PlayerMoved     {2516, "Your pilot was in no squadron. You are now $1."}; // his name
inline constexpr Wording EndExceeded     {2518, "Bytes after the end of the file: $1"}; // their number
inline constexpr Wording UnreportedFlight{2604, "Your flight has not been reported"};

} // namespace wording
// clang-format on
