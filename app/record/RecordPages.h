#pragma once

#include <cstdint>
#include <vector>

#include "app/career/Checksum.h"
#include "app/career/NewCareer.h"
#include "app/career/SaveCheck.h"
#include "engine/core/String.h"

class Database;
class SqliteFile;

// How record and saves are held together: each save has a page, which holds its checksum and the
// last key of each table.

/// A period that the record lacks, as yyyymmdd. The second day is in it again; if both are the
/// same, part of that day is missing.
struct RecordGap {
    int32_t since = 0;
    int32_t until = 0;
};

/// A save of the career, as the record knows it.
struct SavedPage {
    zel::String checksum;
    int32_t date = 0; // yyyymmdd
};

/// The page up to which the record belongs to a save.
struct PageMark {
    int64_t id = 0;       // 0: nothing in the record leads to the save
    bool isOwn = false;   // the save's own page, otherwise an earlier one
    zel::String checksum; // of the page
    int32_t date = FirstDayOfCareer;
};

/// Whether the save of that content has a page; see CareerObserver::matchSave. Unknown for a career
/// that isn't the record's.
SaveMatch matchPage(SqliteFile& file, const CheckedBytes& content, int32_t& careerNumber);
/// The same from the record of that path; Unknown if it can't be read.
SaveMatch matchRecord(const zel::String& path, bool isReadOnly, const CheckedBytes& content,
                      int32_t& careerNumber);
/// Adds the page of a save: everything in the tables belongs to it.
PageMark addPage(SqliteFile& file, const SavedPage& save);
/// Finds the page of that save. A save that the record doesn't know, such as one that was damaged
/// or played without a record, gets the last page up to its date that the career doesn't
/// contradict: those who died are dead, those who joined have the same names, and nobody has won
/// more than he is credited with. So the rows of another branch of the war don't count as its own.
PageMark findPage(SqliteFile& file, const SavedPage& save, const Database& career);
/// Whether that page is in the file, and whether it is its last one.
bool hasPage(SqliteFile& file, const PageMark& mark);
bool endsWith(SqliteFile& file, const PageMark& mark);
/// Whether a flight with that log is in the record up to that page; what comes after it is a
/// different timeline.
bool hasFlight(SqliteFile& file, const PageMark& mark, const zel::String& log,
               const zel::String& hash);
/// The gaps up to that page.
std::vector<RecordGap> gapsUpTo(SqliteFile& file, const PageMark& mark);
/// Removes everything that came after that page.
void cutRecord(SqliteFile& file, const PageMark& mark);
