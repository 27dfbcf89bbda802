#pragma once

#include <cstdint>
#include <string_view>

#include "engine/core/String.h"

class SqliteFile;

constexpr std::string_view RecordEnding = ".db";
/// Part of the name of a record whose save is not in its place yet.
constexpr const char* RecordDraft = "-new";

/// The result of opening a record.
enum class RecordState {
    Ready,
    Missing,
    Damaged,
    OtherCareer,
    Newer,    // written by a later version of the program
    Unusable, // read-only, held by another program, no space: perhaps later
};

/// Why a record can't be used: `text` completes "The record ...", and `ending` is the suffix that
/// it gets when it is renamed. Ready means that the record is this career's, with another timeline.
struct RecordStateTexts {
    const char *text, *ending;
};
RecordStateTexts recordStateTexts(RecordState state);

/// Opens the record of that career, checks its pages and tables and brings it to the present
/// schema. The file is usable only with Ready; its problem() has the cause of Unusable.
RecordState openRecord(SqliteFile& file, const zel::String& path, int32_t careerNumber);
/// Whether a file reported as damaged really is: SQLite takes some disk errors for damage.
bool isRecordDamaged(const zel::String& path);
/// Opens it again without the checks. On error: false, and the file has failed.
bool reopenRecord(SqliteFile& file, const zel::String& path);
/// Opens a copy in memory of a record that can be read but not written at present.
RecordState openRecordCopy(SqliteFile& file, const zel::String& path, int32_t careerNumber);
/// Makes the file and its tables. On error: false, and the file has failed.
bool createRecord(SqliteFile& file, const zel::String& path);
/// An empty record in memory.
bool createRecordInMemory(SqliteFile& file);

// The files of a record are the database and SQLite's own companions beside it. REQUIRES: it isn't
// open.

/// A path beside the record that no file has: "record-damaged.db", "record-damaged-2.db".
zel::String freeRecordPath(const zel::String& path, const char* reason);
/// False on error.
bool moveRecord(const zel::String& from, const zel::String& to);
/// Removes the database and its companions, as far as they exist and can be removed.
void removeRecord(const zel::String& path);
/// Removes the drafts beside that record, of saves that were never completed.
void removeRecordDrafts(const zel::String& path);
/// Whether SQLite's companions are there: the record is open elsewhere, or was when its program was
/// killed.
bool hasCompanions(const zel::String& path);
