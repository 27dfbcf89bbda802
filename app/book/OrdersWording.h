#pragma once

#include "app/career/Wording.h"

// What the orders of the day say about the flight.
// clang-format off
namespace wording {

inline constexpr Wording PatrolNearTown  {4451, "Patrol near $1, $2 km $3 of your field, and attack whatever you meet."}; // direction
inline constexpr Wording PatrolFarOff    {4452, "Patrol $1 km $2 of your field, and attack whatever you meet."};
inline constexpr Wording PatrolOverField {4453, "Patrol over your field, and attack whatever comes."};
inline constexpr Wording TaskAndSky      {4459, "$1\\n$2"};
inline constexpr Wording YouInTheRoster  {4460, "$1 (you)"};
inline constexpr Wording RowsOfRoster    {4461, "$1 of $2"};
inline constexpr Wording SectorOf        {4464, "Sector of $1"};
inline constexpr Wording RingOfField     {4465, "Blue ring: your field, near $1"};
inline constexpr Wording RingOfFight     {4466, "Red ring: the fight, $1 km $2"}; // direction
inline constexpr Wording RingOverField   {4467, "Red ring: the fight, over your field"};
inline constexpr Wording Directions[] = { // from the north on, by the east
    {4470, "north"}, {4471, "north-north-east"}, {4472, "north-east"}, {4473, "east-north-east"},
    {4474, "east"},  {4475, "east-south-east"},  {4476, "south-east"}, {4477, "south-south-east"},
    {4478, "south"}, {4479, "south-south-west"}, {4480, "south-west"}, {4481, "west-south-west"},
    {4482, "west"},  {4483, "west-north-west"},  {4484, "north-west"}, {4485, "north-north-west"},
};

} // namespace wording
// clang-format on
