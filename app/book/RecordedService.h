#pragma once

#include <cstdint>

#include "app/book/Honours.h"

class SqliteFile;

/// A pilot as a save has him.
struct SavedPilot {
    int32_t pilot = -1; // index of the career
    bool isPlayer = true;
    bool isAlive = true;
    int32_t nation = 0; // code
    int32_t unit = -1;  // number of his squadron; -1 if it has none
    int32_t date = 0;   // of the save, yyyymmdd
    int32_t missions = 0;
    int32_t victories = 0;
    /// The record may be ahead of the save: it counts up to that day and these two figures.
    bool isShelved = false;
};

/// The service of the player or of one of his predecessors, as far as the record has it. `since` is
/// 0 for anybody else: the record has no flights of his. On error: the file has failed.
PilotService readService(SqliteFile& record, const SavedPilot& pilot);

/// Adds what the save has and the record doesn't: it was done by the end of the last gap of his
/// service. Flights are added only if there is such a gap, since a save also counts missions from
/// before the player took the pilot over.
void addUnrecorded(SqliteFile& record, const SavedPilot& pilot, PilotService& service);
