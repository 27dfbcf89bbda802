#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "app/career/Nation.h"
#include "app/career/Records.h"

class Database;

// What no pilot reaches, in the form of the bits that remain of a higher figure: damage most often
// flips a single bit, and so the true figure comes back.
constexpr uint16_t VictoryBits = 0x03FF; // up to 1,023
constexpr uint16_t MissionBits = 0x0FFF; // up to 4,095
constexpr uint8_t SkillBits = 0x1F;      // up to 31, unless a data file says otherwise

/// Whether a text has no control characters, and only zeros after its end. Looks at eight bytes at
/// a time: there are thousands of texts.
template <size_t Size> bool isCleanText(const char (&text)[Size]) {
    constexpr uint64_t Ones = 0x0101010101010101;
    constexpr uint64_t Low = 0x7F * Ones;
    uint64_t wrong = 0; // of each byte the highest bit counts
    uint64_t isEnd = 0;
    size_t i = 0;
    const auto eightFrom = [&](size_t place) {
        uint64_t bytes = 0;
        std::memcpy(&bytes, text + place, std::min(sizeof bytes, Size - place));
        return bytes;
    };
    for (; i < Size && isEnd == 0; i += sizeof(uint64_t)) {
        const uint64_t bytes = eightFrom(i);
        const uint64_t isText = ((bytes & Low) + Low) | bytes;              // not 0
        const uint64_t isPrinted = ((bytes & Low) + 0x60 * Ones) | bytes;   // from 0x20 on
        const uint64_t isNotDelete = (((bytes ^ Low) & Low) + Low) | bytes; // not 0x7F
        isEnd = ~isText & ~Low;
        wrong |= isText & (~isPrinted | ~isNotDelete | isEnd << 8);
    }
    uint64_t rest = 0;
    for (; i < Size; i += sizeof(uint64_t))
        rest |= eightFrom(i);
    return (wrong & ~Low) == 0 && rest == 0;
}

inline bool isOfTheWar(int32_t nation) {
    return nation == France || nation == England || nation == Usa || nation == Germany;
}

/// Whether nothing that a pilot's record says by itself is impossible. One of whom it is false may
/// still be sound.
inline bool isPlausible(const Pilot& pilot) {
    return pilot.alive <= 1 && pilot.shotdowns <= VictoryBits && pilot.missions <= MissionBits &&
           pilot.skill <= SkillBits && pilot.historic == (pilot.pilotFile >= 0 ? 1 : 0) &&
           isOfTheWar(pilot.nation) && isCleanText(pilot.name);
}

/// Corrects what the records of squadrons, pilots and data lines hold and no career ever does:
/// nations, control characters in texts, flags, figures and bases. What can be known from another
/// record is taken from there. `arePilotsSound`: all pilots are plausible, so they are left out.
/// Returns the number of values corrected. REQUIRES: indices that lead somewhere or to nothing.
int32_t repairValues(Database& career, bool arePilotsSound);
