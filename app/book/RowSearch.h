#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/record/Sqlite.h"
#include "engine/core/String.h"

class Database;

/// While it lives, all reads of the file share one lock, since it keeps a row open. Otherwise each
/// read takes a lock of its own, which costs more than finding a row.
class ReadLock {
public:
    explicit ReadLock(SqliteFile& file) : row(file, "SELECT 1 FROM sqlite_master") { row.next(); }

private:
    SqliteStatement row;
};

// Rows of the record by binary search. A table grows day by day, so its keys are in the order of
// the days.

enum class DatedTable : uint8_t { Victory, Posting };

/// The key of the first row of that day or a later one; one beyond the last key if there is none.
int64_t firstRowFrom(SqliteFile& record, DatedTable table, int32_t date);
/// The key of the posting by which the pilot joined the war: new pilots get the next indices. 0 if
/// it isn't in the record.
int64_t firstArrivalFrom(SqliteFile& record, int32_t pilot);

/// How the book names one of a flight's reports: the career's pilot by his name, an object on the
/// ground by what it is, otherwise by its name in the log.
zel::String nameOfReport(const Database& career, int32_t pilot, const zel::String& name,
                         const zel::String& type);

/// Lowers letters with accents too, which neither SQLite nor zel::String does.
std::string lowered(std::string_view text);
/// The same with the accents off, so that a name is found however it is written.
std::string folded(std::string_view text);
