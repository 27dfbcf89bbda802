#pragma once

#include "app/career/Wording.h"

// What the letters say that bring a rank or a decoration.
// clang-format off
namespace wording {

inline constexpr Wording CitedPilot      {3401, "$1, $2."}; // title, service
inline constexpr Wording NewRank         {3402, "From this day he holds the rank of $1."}; // rank
inline constexpr Wording Citations[] = { // three of each side: British, French, German; flights, victories; the third says "with"
    {3410, "For conspicuous gallantry in the air: $2 in $1."},
    {3411, "For skill and courage against the enemy's machines. In $1 he has won $2, and is a fine example to his squadron."},
    {3412, "For devotion to duty. In $1, with $2, he has never turned away from a fight."},
    {3413, "Cited in the order of the army: a pilot of the first rank, always ready to attack. $2 in $1."},
    {3414, "Cited in the order of the army: brings to every flight the same dash and the same coolness. $2 in $1."},
    {3415, "Cited in the order of the army: a model for all who fly with him. $2 in $1."},
    {3416, "His Majesty the Emperor has been pleased to confer this decoration. $2 in $1."},
    {3417, "In the name of His Majesty the Emperor, in recognition of his service in the air: $2 in $1."},
    {3418, "By order of the All-Highest, for his bearing before the enemy. $2 in $1."},
};
inline constexpr Wording NoVictoryCited[] = { // one of each side; flights
    {3438, "For devotion to duty in $1: a fine example to his squadron."},
    {3439, "Cited in the order of the army: in $1 always ready to attack."},
    {3441, "In the name of His Majesty the Emperor, in recognition of his service in the air in $1."},
};
// The cases that some languages have after "in" and "with".
inline constexpr CountForms InFlights    = {{3432, "no flight"}, {3433, "1 flight"}, {3434, "$1 flights"}};
inline constexpr CountForms WithVictories = {{3435, "no victory"}, {3436, "1 victory"}, {3437, "$1 victories"}};
inline constexpr Wording FrenchCorps     {3450, "French Air Service"};
inline constexpr Wording FlyingCorpsItself{3451, "Royal Flying Corps"};
inline constexpr Wording GermanCorps     {3452, "German Air Service"};
inline constexpr Wording AmericanCorps   {3453, "United States Air Service"};
inline constexpr Wording NavalAirService {3430, "Royal Naval Air Service"};
inline constexpr Wording AirForce        {3431, "Royal Air Force"};

} // namespace wording
// clang-format on
