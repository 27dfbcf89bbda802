#pragma once

#include "app/career/Wording.h"

// What the squadron's diary says.
// clang-format off
namespace wording {

inline constexpr Wording YouBroughtDown  {3300, "You brought down $1. $2 now."}; // victims, victories
inline constexpr Wording HasScored       {3301, "$1: $2, $3 now."}; // name, victories of these days, all victories
inline constexpr Wording FirstScore      {3302, "$1: $2, his first."}; // name, victories
inline constexpr Wording FellToWith      {3303, "$1 fell to $2. He had $3."}; // name, victor, victories
inline constexpr Wording FellToOne       {3304, "$1 fell to $2."};
inline constexpr Wording FellWith        {3305, "$1 fell. He had $2."};
inline constexpr Wording HasFallen       {3306, "$1 fell."};
inline constexpr Wording YouFellTo       {3307, "Your pilot $1 fell to $2, with $3."}; // name, victor, victories
inline constexpr Wording YouFell         {3308, "Your pilot $1 fell, with $2."};
inline constexpr Wording YouAreNow       {3309, "$1 takes his place: you fly as him now."};
inline constexpr Wording YouAreWounded[] = { // slightly, more than that, severely
    {4100, "You came back slightly wounded."},
    {3310, "You came back wounded."},
    {4101, "You came back severely wounded."},
};
inline constexpr Wording YouArePromoted  {3311, "You are promoted: $1."};
inline constexpr Wording YouAreAwarded   {3312, "You are awarded: $1."};
inline constexpr Wording HasCome         {3313, "$1 has come."};
inline constexpr Wording HaveCome        {3314, "$1 have come."}; // several names
inline constexpr Wording HasLeft         {3315, "$1 has left for $2."}; // name, unit
inline constexpr Wording YouHaveLeft     {3316, "You have left for $1."};
inline constexpr Wording HasLeftForAnother{3464, "$1 has left for another squadron."};
inline constexpr Wording YouHaveLeftForAnother{3465, "You have left for another squadron."};
inline constexpr Wording YouAreMentioned {3466, "You are mentioned in despatches."};
inline constexpr Wording YouAreNamed     {3467, "You are named in the communiqu\351."};
inline constexpr Wording NothingYet      {3318, "You have joined the squadron. Nothing is written here yet: fly your first mission."};
inline constexpr Wording QuietDays       {3319, "Quiet days: nobody scored, nobody was lost."};
inline constexpr Wording FrontScore      {3320, "$1, $2: $3 ($4 new)"}; // name, unit, victories, new ones
inline constexpr Wording FrontLoss       {3321, "$1, $2, has fallen with $3."}; // name, unit, victories
inline constexpr Wording FrontScoreAlone {3324, "$1: $2 ($3 new)"}; // without a unit
inline constexpr Wording FrontLossAlone  {3325, "$1 has fallen with $2."};
inline constexpr Wording NobodyScored    {3322, "Nobody has scored since you came."};
inline constexpr Wording NoneOfThem      {3323, "None of the leading pilots scored or fell."};

inline constexpr Wording RealEvent       {3330, "$1: $2"}; // day, text
inline constexpr Wording DayOfMonth      {3331, "$1 $2"}; // day, month
inline constexpr Wording FirstDay        {3332, "1 $1"};
inline constexpr Wording RealVictories   {3333, "$1: $2 wins $3 and has $4 now."}; // day, name, victories, all of them
inline constexpr Wording RealEnds[] = { // by Fate, from Killed on; day, name, victories
    {3334, "$1: $2, $3, is killed."},
    {3335, "$1: $2, $3, dies."},
    {3336, "$1: $2, $3, is captured."},
    {3337, "$1: $2, $3, is badly wounded."},
};
inline constexpr Wording NothingKnown    {3338, "Nothing is known of these days."};

inline constexpr Wording DaysTo          {3350, "$1 to $2"};
inline constexpr Wording DayAlone        {3454, "$1"}; // of the month that the other day names
inline constexpr Wording FirstDayAlone   {3455, "1"};
inline constexpr Wording FlightOf        {3351, "Flight $1 of about $2"};
inline constexpr Wording WarIsDone       {3352, "The war is over"};
inline constexpr Wording ServedAndToCome {3353, "$1 served, $2 to come"}; // months
inline constexpr Wording MonthsToCome    {3354, "$1 to come"};

} // namespace wording
// clang-format on
