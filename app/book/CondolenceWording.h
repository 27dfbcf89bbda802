#pragma once

#include "app/career/Wording.h"

// What the letter to the family of a fallen pilot says.
// clang-format off
namespace wording {

inline constexpr Wording LetterGreeting  {4000, "Dear Madam,"};
inline constexpr Wording SadDuties[] = { // by the service: British, French, German; title
    {4001, "it is my sad duty to write that $1 did not come back to-day."},
    {4002, "it is my painful duty to tell you that $1 fell to-day on the field of honour."},
    {4003, "in deep sorrow I must tell you that $1 has not returned from to-day's flight."},
};
inline constexpr Wording SadLateDuties[] = { // likewise, where the record lacks his last flight
    {4029, "it is my sad duty to write that $1 did not come back from his last flight."},
    {4030, "it is my painful duty to tell you that $1 has fallen on the field of honour."},
    {4031, "in deep sorrow I must tell you that $1 has not returned from his last flight."},
};
inline constexpr Wording LetterPlace     {4004, "He fell near $1."};
inline constexpr Wording LetterVictorOf  {4005, "$1 of $2 shot him down."}; // victor, unit
inline constexpr Wording LetterVictor    {4006, "$1 shot him down."};
inline constexpr Wording LetterGround    {4007, "He was brought down from the ground ($1)."}; // the weapon
inline constexpr Wording LetterOwnSide   {4008, "By a dreadful mistake one of our own brought him down."};
inline constexpr Wording LetterCrashAlone{4009, "His machine crashed, and no enemy had a part in it."};
inline constexpr Wording LetterCrash     {4032, "His machine crashed."};
inline constexpr Wording LetterWounds    {4010, "He died of his wounds."};
inline constexpr Wording LetterVictories {4011, "In $1 he won $2."}; // flights, victories
inline constexpr Wording LetterFlights   {4012, "It was the last of his $1."};
inline constexpr Wording LetterFirst     {4013, "It was his first flight with us."};
inline constexpr CountForms FlightsOfLetter = {{4014, "no flight"}, {4015, "one flight"}, {4016, "$1 flights"}};
inline constexpr Wording LetterAwards    {4017, "He had been awarded: $1."};
inline constexpr Wording LetterMoreAwards{4033, "$1 and $2 more"}; // list, number
inline constexpr Wording LetterEnds[] = { // by the service
    {4018, "We shall miss him badly."},
    {4019, "His comrades salute his memory."},
    {4020, "The squadron will hold his memory in honour."},
};
inline constexpr Wording LetterSender    {4021, "Commanding $1"}; // unit
inline constexpr Wording LetterSenderAlone{4022, "Commanding his squadron"};
inline constexpr Wording HasReported     {4024, "$1 has reported to-day."};
inline constexpr Wording NobodyReported  {4025, "Nobody has reported yet. His place is filled before the next flight."};
inline constexpr Wording NobodyInPeace   {4026, "The war is over. Nobody takes his place."};

} // namespace wording
// clang-format on
