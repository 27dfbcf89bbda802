#pragma once

#include "app/career/Wording.h"

// What the flying log book says. The columns of a page are set in a typewriter face: results have
// at most 19 letters in every language; a test checks this.
// clang-format off
namespace wording {

inline constexpr CountForms BookFlights = {{3600, "0 flights"}, {3601, "1 flight"}, {3602, "$1 flights"}};
inline constexpr CountForms BookMonths  = {{3603, "less than a month"}, {3604, "1 month"}, {3605, "$1 months"}};
inline constexpr Wording FlightsInMonths{3606, "$1, $2"};
inline constexpr Wording VictoriesBy    {3607, "$1: $2"}; // victories, a list of machines
inline constexpr Wording CountOfMachines{3608, "$1 $2"};
inline constexpr Wording MoreMachines   {3609, "$1 more"};
inline constexpr Wording NoFlightYet    {3610, "No flight yet"};
inline constexpr Wording WithMore       {3611, "$1 +$2"};
inline constexpr Wording FlewAlone      {3612, "alone"};
inline constexpr Wording NobodyMet      {3613, "nobody met"};
inline constexpr Wording FellOn         {3614, "$1 fell on $2."}; // pilot, date
inline constexpr Wording InHisPlace     {3615, "In his place: $1."};
inline constexpr Wording LogBookHeads[] = {
    {3616, "No."}, {3617, "Date"}, {3618, "Near"}, {3619, "Machine"}, {3620, "With"}, {3621, "Against"}, {3622, "Result"}, {3623, "V."},
};
inline constexpr Wording RowDate        {3624, "$1 $2 $3"}; // day, one of the next, year
inline constexpr Wording RowMonths[] = {
    {3661, "Jan"},  {3662, "Feb"}, {3663, "Mar"},  {3664, "Apr"}, {3665, "May"}, {3666, "June"},
    {3667, "July"}, {3668, "Aug"}, {3669, "Sept"}, {3670, "Oct"}, {3671, "Nov"}, {3672, "Dec"},
};

inline constexpr Wording Downed[] = {{3630, "One down"}, {3631, "Two down"}, {3632, "Three down"}, {3633, "$1 down"}};
inline constexpr Wording DownedAnd      {3634, "$1, $2"}; // one of the next four
inline constexpr Wording AndFell        {3635, "fell"};
inline constexpr Wording AndShotDown    {3636, "shot down"};
inline constexpr Wording AndInjured     {3637, "injured"};
inline constexpr Wording AndDamaged     {3638, "damaged"};
inline constexpr Wording Fell           {3640, "Fell"};
inline constexpr Wording WasShotDown    {3641, "Shot down"};
inline constexpr Wording HasCrashed     {3642, "Crashed"};
inline constexpr Wording BadlyInjured   {3643, "Severely injured"};
inline constexpr Wording WasInjured     {3644, "Injured"};
inline constexpr Wording SlightlyInjured{3645, "Slightly injured"};
inline constexpr Wording DamagedAndLanded{3646, "Damaged, landed"};
inline constexpr Wording BadLanding     {3647, "Destroyed, landed"};
inline constexpr Wording WasDamaged     {3648, "Damaged"};
inline constexpr Wording WasDestroyed   {3649, "Destroyed"};
inline constexpr Wording HasLanded      {3650, "Landed"};
inline constexpr Wording LeftInTheAir   {3651, "Left in the air"};
inline constexpr Wording NotInTheLog    {3652, "Not in the log"};
inline constexpr Wording PageOf         {3691, "Page $1 of $2"};

} // namespace wording
// clang-format on
