#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "app/career/Nation.h"
#include "app/career/Records.h"

class Database;

// Masks for figures: no pilot exceeds them, so higher bits are cleared. Damage most often flips a
// single bit, so that restores the true figure.
constexpr uint16_t VictoryBits = 0x03FF; // up to 1,023
constexpr uint16_t MissionBits = 0x0FFF; // up to 4,095
constexpr uint8_t SkillBits = 0x1F;      // up to 31, unless a data file says otherwise

/// Whether a text has no control characters, and only zeros after its end. Looks at sixteen bytes
/// at a time, and no branch depends on them: there are tens of thousands of names. REQUIRES: a zero
/// at the text's last place.
template <size_t Size> bool isCleanText(const char (&text)[Size]) {
    using Bytes [[gnu::vector_size(16)]] = uint8_t;
    if constexpr (Size <= sizeof(Bytes)) {
        char wide[sizeof(Bytes) + 1] = {};
        std::memcpy(wide, text, Size);
        return isCleanText(wide);
    } else {
        uint64_t wrong = 0;
        for (size_t i = 0; i + 1 < Size; i += sizeof(Bytes)) {
            const char* const place = text + std::min(i, Size - 1 - sizeof(Bytes));
            Bytes codes;
            Bytes next;
            std::memcpy(&codes, place, sizeof codes);
            std::memcpy(&next, place + 1, sizeof next);
            const auto found = (codes - 1 < 0x1F) | (codes == 0x7F) | ((codes == 0) & (next != 0));
            uint64_t halves[2];
            std::memcpy(halves, &found, sizeof halves);
            wrong |= halves[0] | halves[1];
        }
        return wrong == 0;
    }
}

inline bool isOfTheWar(int32_t nation) {
    return nation == France || nation == England || nation == Usa || nation == Germany;
}

/// Whether a pilot's record is possible, taken by itself. A sound one may still fail this.
inline bool isPlausible(const Pilot& pilot) {
    return pilot.alive <= 1 && pilot.shotdowns <= VictoryBits && pilot.missions <= MissionBits &&
           pilot.skill <= SkillBits && pilot.historic == (pilot.pilotFile >= 0 ? 1 : 0) &&
           isOfTheWar(pilot.nation) && isCleanText(pilot.name);
}

/// The same for the records of data files and for their lines.
inline bool isPlausible(const SquadronFile& file) {
    return std::memcmp(file.key, file.fileName, sizeof file.key) == 0 && isCleanText(file.key) &&
           isCleanText(file.lastDate);
}
inline bool isPlausible(const PilotFile& file) { return isCleanText(file.name); }
inline bool isPlausible(const DataLine& line) { return line.applied <= 1; }

/// Corrects what the records of squadrons, pilots and data lines hold and no career ever does:
/// nations, control characters in texts, flags, figures and bases. What can be known from another
/// record is taken from there. `pilots` are those to look at; the data files and their lines are
/// left out if all of them are plausible. Returns the number of values corrected. REQUIRES: indices
/// that lead somewhere or to nothing.
int32_t repairValues(Database& career, const std::vector<int32_t>& pilots, bool areFilesPlausible);
