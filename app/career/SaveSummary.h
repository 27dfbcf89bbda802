#pragma once

#include <cstdint>
#include <string_view>

#include "app/career/Database.h"
#include "engine/core/Clock.h"
#include "engine/core/String.h"

/// How far a career has come.
enum class CareerState { Serving, Fallen, WarOver };

/// What a list shows of a save. It is read from some hundred bytes of the file, so that many
/// careers are listed at once: a fault among the other bytes is not noticed here.
struct SaveSummary {
    bool isReadable = false;     // otherwise only `file`, `fault` and `written` have a meaning
    zel::String file;            // its path
    zel::String fault;           // what is wrong with it, in English: "ends early"; or empty
    bool isOtherVersion = false; // and not known to be damaged

    int32_t careerNumber = 0; // Database::careerNumber
    Calendar date{0, 0, 0};
    zel::String pilot;       // the player's name
    int32_t pilotIndex = -1; // of the career
    bool isPlayer = true;    // false for the pilot with whom the book was closed
    int32_t nation = 0;      // of his squadron (Nation.h)
    int32_t unit = -1;       // its number (UnitNames.h); -1 if it has none
    zel::String squadron;    // its name in the language in use; empty if it has none
    zel::String base;        // the town near it, in the language in use
    int32_t victories = 0;
    int32_t missions = 0;                     // that the pilot has flown
    CareerState state = CareerState::Serving; // Fallen also after the war

    zel::WallTime written{}; // when the file was written; zeroes if there is none
    int64_t order = 0;       // orders the times of writing: the later file has the larger one
};

/// How a player has closed the book of a career: with a pilot who had fallen, on that day, though
/// the save has a successor. It counts as long as the save has that player and that day. Indices of
/// the career; -1 for a book that is open.
struct Closing {
    int32_t fallen = -1;
    int32_t successor = -1;
    int32_t date = 0; // yyyymmdd
};

/// Reads the summary of the save at that path; of a closed book it is the fallen pilot's. On error:
/// not readable, with the fault.
SaveSummary summaryOf(const zel::String& path, const Closing& closing = {});

/// Whether these bytes are a save file of the right length: its head and the counts of its records
/// fit. Empty, or what is wrong as in SaveSummary::fault.
zel::String saveFault(std::string_view content);
