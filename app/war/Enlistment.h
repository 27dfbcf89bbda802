#pragma once

#include <cstdint>

#include "app/career/PilotReport.h"
#include "engine/core/String.h"

class Database;
class MissionGenerator;

namespace zel {
class Random;
}

/// What a player chooses before his career begins. None of it takes a draw. With these defaults a
/// career follows from its seed alone.
struct Enlistment {
    zel::String name;      // empty: the one that was drawn
    int32_t squadron = -1; // of his service; -1: the one that the service chooses
};

/// What the player may call himself: as much as the log keeps.
constexpr int32_t LongestPilotName = LongestLoggedName;

enum class NameFault {
    None,
    Empty,
    TooLong,
    Character, // one that the log can't carry
    OfAce,     // a pilot of the data files has it
    OfPilot,   // another pilot of the career has it
};

struct NameCheck {
    NameFault fault = NameFault::None;
    zel::String bearer; // who has the name
};

/// Whether the simulator's mission and log can carry the character of Windows-1252: no quotes, no
/// "/" or "\", nothing that ends a text of theirs, no symbol without an ASCII look-alike.
bool isNameCharacter(char character);
/// What is wrong with the name itself: Empty, TooLong, Character or None. Blanks around it don't
/// count, here and below.
NameFault checkSpelling(const zel::String& name);
/// What is wrong with that name for the player of a career that was just made. Names are compared
/// as the simulator spells them, ignoring case. The drawn name is always valid.
NameCheck checkPilotName(const Database& career, const zel::String& name);
/// Another, valid name for the player from the lists of his nation. It takes its draws from
/// `random` alone. On error (no such name among a thousand): the drawn one.
zel::String drawAnotherName(const Database& career, zel::Random& random);
/// Begins the service in a career that was just made: the player gets the name and changes places
/// with a pilot of the squadron, and the war is fought up to the first of the month. A chosen
/// squadron is then active at the base that baseForPlayer() gave for it (Bases.h).
void beginService(Database& career, MissionGenerator& generator, const Enlistment& enlistment,
                  int32_t year, int32_t month);
