#pragma once

#include <cstdint>

#include "engine/core/String.h"

class SqliteFile;

constexpr int32_t FirstDayOfWar = 19151201; // of every career

/// What became of opening a record.
enum class RecordState {
    Ready,
    Missing,
    Damaged,
    OtherCareer,
    Newer,    // written by a later version of the program
    Unusable, // read-only, held by another program, no space: perhaps later
};

/// "is damaged": why a record can't be used. REQUIRES: neither Ready nor Unusable.
const char* stateText(RecordState state);

/// Opens the record of that career, checks its pages and brings it to the present schema. Only with
/// Ready is the file of use; its problem() has the cause of Damaged and Unusable.
RecordState openRecord(SqliteFile& file, const zel::String& path, int32_t careerNumber);
/// Makes the file and its tables. On error: false, and no file.
bool createRecord(SqliteFile& file, const zel::String& path);
/// Moves a record that can't be used out of the way, to a name that says why and that no file has:
/// "record-damaged.db", "record-damaged-2.db". The new path; empty on error. REQUIRES: it isn't
/// open.
zel::String setRecordAside(const zel::String& path, RecordState why);

/// A save of the career, as the record knows it.
struct SavedPage {
    zel::String checksum;
    int32_t date = 0; // yyyymmdd
};

/// Notes that everything in the tables belongs to that save.
void addPage(SqliteFile& file, const SavedPage& page);
/// Removes what isn't in that save: all that came after it. A save that the record doesn't know is
/// taken for the last one up to its date. Returns the day from which on the record lacks what led
/// to the save: its own date if nothing is lacking.
int32_t cutRecord(SqliteFile& file, const SavedPage& page);
