#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

// The career's records are in the save file as they are in memory: little-endian, with every fill
// byte a named member that is zero from the record's creation on. blank() below makes them.
// docs/formats.md shows the file.

constexpr int32_t SlotCount = 32;
constexpr int32_t LineReferenceCount = 256;
constexpr int32_t AceShotdowns = 5; // the fewest victories of an ace

/// A person of the career, historic or generated. None is ever removed.
struct Pilot {
    char name[64];
    int32_t squadron; // index of his squadron
    uint8_t alive;    // 0: dead or otherwise gone, his slot counts as vacant
    uint8_t fillA;
    uint16_t nation; // the squadron's at his creation
    uint8_t skill;   // 0 to about 12, 10 is very good
    uint8_t fillB;
    uint16_t shotdowns; // confirmed victories
    uint16_t missions;  // flown
    uint8_t historic;   // 1 if he came from a pilot file
    uint8_t fillC;
    int32_t pilotFile; // index of his file, -1 for a generated pilot
    uint8_t pilotFlag; // never read
    uint8_t fillD[3];
};
static_assert(sizeof(Pilot) == 88);
static_assert(offsetof(Pilot, squadron) == 64 && offsetof(Pilot, nation) == 70);
static_assert(offsetof(Pilot, shotdowns) == 74 && offsetof(Pilot, historic) == 78);
static_assert(offsetof(Pilot, pilotFile) == 80 && offsetof(Pilot, pilotFlag) == 84);

/// A squadron of the war, from a squadron file or generated. The player's is one of them.
struct Squadron {
    char name[64];        // unused
    char key[64];         // of its data file, at most 11 characters; empty if generated
    char baseName[64];    // of the current airfield
    uint8_t onChannelMap; // 0 western front, 1 Channel
    uint8_t fillA[3];
    float baseX; // metres, to the north
    float baseY; // metres, above the sea
    float baseZ; // metres, to the east
    uint16_t nation;
    char earliestDate[12]; // "yyyymmdd" of its entry into the war; empty if none
    uint8_t flagA;         // never read; nor are flagB to flagD
    uint8_t flagB;
    uint8_t flagC;
    uint8_t active; // 1 once it takes part in the war
    uint8_t flagD;
    uint8_t pilotCount;   // used slots; never falls
    int16_t squadronFile; // index of its file, -1 if generated
    uint8_t fillB[2];
    int32_t slots[SlotCount]; // pilot indices, -1 after the used ones
};
static_assert(sizeof(Squadron) == 360);
static_assert(offsetof(Squadron, key) == 64 && offsetof(Squadron, onChannelMap) == 192);
static_assert(offsetof(Squadron, baseX) == 196 && offsetof(Squadron, nation) == 208);
static_assert(offsetof(Squadron, earliestDate) == 210 && offsetof(Squadron, active) == 225);
static_assert(offsetof(Squadron, squadronFile) == 228 && offsetof(Squadron, slots) == 232);

/// One line of a data file, as read.
struct DataLine {
    uint8_t applied; // 1 once its event has taken place
    uint8_t reserved[12];
    char text[256];
};
static_assert(sizeof(DataLine) == 269 && offsetof(DataLine, text) == 13);

/// A squadron file of the data, read when the career is made.
struct SquadronFile {
    char fileName[64];
    char key[64]; // the same text; its first three digits are the nation
    uint8_t reserved[3];
    char lastDate[12]; // the last date seen when the career was made
    uint8_t fill;
    int32_t lines[LineReferenceCount]; // indices of data lines in file order, then -1
};
static_assert(sizeof(SquadronFile) == 1168);
static_assert(offsetof(SquadronFile, lastDate) == 131 && offsetof(SquadronFile, lines) == 144);

/// A pilot file of the data, read when the career is made. Its pilot joins later, if ever.
struct PilotFile {
    char name[64];
    int32_t pilotIndex; // once he has joined
    uint16_t reservedWord;
    uint8_t joined; // 1 once he has joined a squadron
    char reservedTextA[12];
    char reservedTextB[12];
    uint8_t fill;
    int32_t lines[LineReferenceCount]; // as in SquadronFile
};
static_assert(sizeof(PilotFile) == 1120);
static_assert(offsetof(PilotFile, joined) == 70 && offsetof(PilotFile, lines) == 96);

// Trivial, so that a vector of them is filled from a file by copying memory.
static_assert(std::is_trivial_v<Pilot> && std::is_trivial_v<Squadron> &&
              std::is_trivial_v<DataLine> && std::is_trivial_v<SquadronFile> &&
              std::is_trivial_v<PilotFile>);

/// Records with nothing in them: zeroes, and -1 for each index.
template <typename Record> Record blank() { return Record{}; }
template <> inline Pilot blank<Pilot>() {
    Pilot pilot{};
    pilot.squadron = -1;
    pilot.pilotFile = -1;
    return pilot;
}
template <> inline Squadron blank<Squadron>() {
    Squadron squadron{};
    squadron.squadronFile = -1;
    std::fill(std::begin(squadron.slots), std::end(squadron.slots), -1);
    return squadron;
}
template <> inline SquadronFile blank<SquadronFile>() {
    SquadronFile file{};
    std::fill(std::begin(file.lines), std::end(file.lines), -1);
    return file;
}
template <> inline PilotFile blank<PilotFile>() {
    PilotFile file{};
    file.pilotIndex = -1;
    std::fill(std::begin(file.lines), std::end(file.lines), -1);
    return file;
}
#ifdef __BYTE_ORDER__
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the records are written as they are");
#endif
