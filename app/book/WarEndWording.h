#pragma once

#include "app/career/Wording.h"

// What the sheet and the board of the end of the war say.
// clang-format off
namespace wording {

inline constexpr Wording Hostilities     {4061, "Hostilities ceased at eleven this morning. There will be no flying to-day."};
inline constexpr Wording Comrades[] = { // by those alive: none, one, more; all, alive
    {4062, "Of the $1 pilots who served in your squadron with you, none is alive."},
    {4063, "Of the $1 pilots who served in your squadron with you, one is alive."},
    {4064, "Of the $1 pilots who served in your squadron with you, $2 are alive."},
};
inline constexpr Wording AllComrades     {4075, "The $1 pilots who served in your squadron with you are all alive."};
inline constexpr Wording RealFirst       {4065, "In the real war $1 came first, with $2."}; // name, victories
inline constexpr Wording CameHome        {4066, "You brought nobody down, and you came home."};
inline constexpr Wording FlightsAndVictories{4067, "$1, $2"};
inline constexpr Wording FlewToTheEnd    {4068, "From $1 to the end"}; // date
inline constexpr Wording FlewUntil       {4069, "From $1 until he fell on $2"}; // dates
inline constexpr Wording FlewUntilAlone  {4074, "Until he fell on $1"}; // date
inline constexpr Wording PlaceOfAce      {4070, "Place $1 among the aces of the war"};
inline constexpr Wording PlaceOfPilot    {4071, "Place $1 among the pilots of the war"};
inline constexpr Wording BeforeHim       {4072, "Before him: $1, who fell with $2"}; // name, victories
inline constexpr Wording SeveralBeforeHim{4073, "Before him $1 fell, the last of them $2"}; // number, name
inline constexpr Wording BoardLine       {4079, "$1 $2: $3"}; // place, name, victories
inline constexpr Wording BoardLineReal   {4080, "$1 $2: $3, in the real war $4"};

} // namespace wording
// clang-format on
