#pragma once

#include "app/career/Wording.h"

// What the command line program prints about its results. Errors are English, as the log is.
// clang-format off
namespace wording {

inline constexpr Wording Loaded          {3000, "Loaded $1"};
inline constexpr Wording Saved           {3001, "Saved $1"};
inline constexpr Wording StatusDate      {3010, "Date: $1"};
inline constexpr Wording StatusPilot     {3011, "Pilot: $1"};
inline constexpr Wording StatusFallen    {3012, "Pilot: $1 (fallen; his successor flies the next mission)"};
inline constexpr Wording StatusSquadron  {3013, "Squadron: $1"};
inline constexpr Wording StatusNoName    {3014, "Squadron: without a name"};
inline constexpr Wording StatusVictories {3015, "Victories: $1"};
inline constexpr Wording StatusMissions  {3016, "Missions: $1"};
inline constexpr Wording StatusNext      {3017, "Next: $1"};
inline constexpr Wording StatusNextFly   {3018, "Next: fly the mission WingtallyMission in Rise of Flight, then report"};
inline constexpr Wording StatusNoSimulator{3026, "Rise of Flight was not found: there is no data\\startup.cfg. Name its folder as rof.directory in wtysettings.ini"};
inline constexpr Wording StatusNotThere  {3027, "Rise of Flight was not found in $1: there is no data\\startup.cfg. Name its folder as rof.directory in wtysettings.ini"};
inline constexpr Wording StatusNoTextLog {3028, "Rise of Flight writes no text log: set mission_text_log = 1 in $1data\\startup.cfg"};
inline constexpr Wording StatusNextAnswer{3019, "Next: answer the invitation"};
inline constexpr Wording Flown           {3020, "The stand-in simulator has flown the mission: $1"};
inline constexpr Wording ReportHead      {3021, "Combat Report: $1"};
inline constexpr Wording Accepted        {3022, "Accepted"};
inline constexpr Wording Refused         {3023, "Refused"};
inline constexpr Wording NobodyThere     {3024, "That squadron has no pilots"};
inline constexpr Wording NoInvitation    {3025, "No invitation waits"};

} // namespace wording
// clang-format on
