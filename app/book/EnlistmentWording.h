#pragma once

#include "app/career/Wording.h"

// What the enlistment says about a name and about the squadrons.
// clang-format off
namespace wording {

inline constexpr Wording SquadronsSeen   {4410, "Squadrons $1 to $2 of $3"};
inline constexpr Wording NameNeeded      {4411, "A name is needed."};
inline constexpr Wording NameOfAce       {4412, "There is an ace of this name: $1."};
inline constexpr Wording NameOfPilot     {4413, "There is another pilot of this name: $1."};
inline constexpr Wording NameNotInTheLog     {4414, "The simulator's log can't carry this character."};
inline constexpr Wording NameTooLong     {4415, "A name has at most $1 letters."};
inline constexpr Wording NoSquadronOpen  {4416, "All machines of this month are switched off: no squadron can be chosen."};
inline constexpr Wording KeyHead         {4420, "Key"}; // of the column with the data's numbers
inline constexpr Wording SquadronHead    {4405, "Squadron"};
inline constexpr Wording MachineHead     {4406, "Machine"};
inline constexpr Wording KnownPilotHead  {4408, "Known pilot"};
inline constexpr Wording BaseInList      {4419, "Near $1"};

} // namespace wording
// clang-format on
