#pragma once

#include "app/career/Wording.h"

// What the command line program prints about its results. Errors are in English, like the log.
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

inline constexpr Wording RecordedFlight  {3030, "Flight $1: $2, near $3, $4. Victories: $5. $6"}; // aircraft, fate
inline constexpr Wording RecordedVictory {3031, "$1: $2 ($3) shot down $4 ($5)"};
inline constexpr Wording RecordedKill    {3032, "$1: $2 ($3) shot down $4 ($5), who died"};
inline constexpr Wording PostedNew       {3033, "$1: $2 joined the squadron"};
inline constexpr Wording PostedHere      {3034, "$1: $2 came from $3"};
inline constexpr Wording PostedAway      {3035, "$1: $2 went to $3"};
inline constexpr Wording PostedDead      {3036, "$1: $2 died"};
inline constexpr Wording PostedKilled    {3037, "$1: $2 was killed by $3"};
inline constexpr Wording PostedSuccessor {3038, "$1: $2 took the place of $3"};
inline constexpr Wording NothingRecorded {3039, "Nothing of the kind is recorded"};
inline constexpr Wording NobodyFell      {4110, "None of your pilots has fallen"};
inline constexpr Wording FallIsUnknown   {4112, "It isn't known whether one of your pilots has fallen: the record of the war has a gap"};
inline constexpr Wording WarGoesOn       {4111, "The war isn't over yet"};
inline constexpr Wording Exported        {3040, "Exported $1"};

inline constexpr Wording CareerOnShelf   {3070, "$1. $2, $3. Victories: $4. Missions: $5"}; // number, pilot, date
inline constexpr Wording PilotOf         {3071, "$1, $2"}; // squadron
inline constexpr Wording CareerIsCurrent {3072, "$1 (current)"};
inline constexpr Wording CareerIsPutAway {3073, "$1 (put away)"};
inline constexpr Wording CareerIsFallen  {3074, "$1 (fallen)"};
inline constexpr Wording CareerIsOver    {3075, "$1 (the war is over)"};
inline constexpr Wording CareerUnreadable{3076, "$1. $2: can't be used ($3)"}; // folder, reason
inline constexpr Wording NoCareers       {3077, "There is no career yet"};
inline constexpr Wording Taken           {3078, "Career $1 is the current one"};
inline constexpr Wording HasPutAway      {3079, "Career $1 is put away"};
inline constexpr Wording PageOfCareer    {3080, "$1: $2. Victories: $3. Missions: $4. Saved: $5"}; // name, date
inline constexpr Wording PageIsDamaged   {3081, "$1 (damaged)"};
inline constexpr Wording PageUnreadable  {3082, "$1: $2 is damaged. Saved: $3"}; // name, file
inline constexpr Wording TurnedBack      {3083, "The page $1 is the current save"};

inline constexpr Wording OrdersOut       {2730, "Orders: those of $1 are out"};
inline constexpr Wording OrdersFiles[] = { // by OrdersFile
    {2731, "Mission file: $1"}, {2732, "Mission file: $1, changed since the orders"}, {2733, "Mission file: $1, which is gone"},
};
inline constexpr Wording OrdersLog       {2734, "Log sought: missionReport(...)[0].txt in $1, newer than the orders"};
inline constexpr Wording OrdersEndHere   {2735, "These orders are not kept: report before this program ends"};

} // namespace wording
// clang-format on
