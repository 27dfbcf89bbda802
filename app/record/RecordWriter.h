#pragma once

#include <cstdint>
#include <vector>

#include "app/record/RecordEvents.h"
#include "engine/core/String.h"

class Database;
class SqliteFile;

/// Writes events into the tables, each of them once.
class RecordWriter {
public:
    /// Adds rows for what the last call hasn't written yet. REQUIRES: the events only grow. On
    /// error: the file has failed, and its transaction must be rolled back.
    void write(SqliteFile& file, const Database& career, const RecordEvents& events);
    /// Forgets what was written: it was rolled back, or the events were replaced.
    void reset() { *this = {}; }

private:
    void writeFlights(SqliteFile& file, const Database& career, const RecordEvents& events);
    void writeVictories(SqliteFile& file, const Database& career, const RecordEvents& events);
    void writePostings(SqliteFile& file, const Database& career, const RecordEvents& events);

    size_t gaps = 0; // written; so the next four
    size_t flights = 0;
    size_t victories = 0;
    size_t postings = 0;
    size_t bases = 0;
    std::vector<int32_t> flightNumbers; // in the file, of the flights that were written
};

/// Fills those tables of a new file that don't change: whose record it is, the program's version,
/// and the squadrons' names in the language in use.
void writeFoundations(SqliteFile& file, const Database& career, const char* version);
/// Replaces the value under the key.
void writeMeta(SqliteFile& file, const char* key, const zel::String& value);
