#pragma once

#include <cstdint>
#include <vector>

#include "app/career/CareerEvents.h"
#include "engine/core/String.h"

class Database;
class SqliteFile;

/// From when to when nothing is in the record, as yyyymmdd. The second day is in it again.
struct RecordGap {
    int32_t since = 0;
    int32_t until = 0;
};

/// What has happened in a career since it was last written to the record. Names of pilots aren't
/// copied: a pilot keeps his index and his name for the whole career.
struct RecordEvents {
    struct DatedFlight {
        int32_t date;
        FlownMission mission;
        zel::String log; // its first piece, without folder
        zel::String logHash;
        int32_t squadron; // the player's
        zel::String base;
        bool onChannelMap;
    };
    struct DatedVictory {
        int32_t date;
        Victory victory;
        int32_t victorSquadron;
        int32_t victimSquadron; // -1 for none
        int32_t flight;         // index of the flights above; -1 for an unseen fight
    };
    struct DatedPosting {
        int32_t date;
        Posting posting;
        int32_t squadron; // from then on
    };
    struct DatedBase {
        int32_t date;
        int32_t squadron;
        zel::String name;
        bool onChannelMap;
        float x, z;
    };

    std::vector<RecordGap> gaps;
    std::vector<DatedFlight> flights;
    std::vector<DatedVictory> victories;
    std::vector<DatedPosting> postings;
    std::vector<DatedBase> bases;
};

/// Writes events into the tables, each of them once.
class RecordWriter {
public:
    /// Adds rows for what the last call hasn't written yet. REQUIRES: the events only grow. On
    /// error: the file has failed, and its transaction is to be rolled back.
    void write(SqliteFile& file, const Database& career, const RecordEvents& events);
    /// What was written is rolled back, or the events are others.
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

/// Fills a new file's tables that don't change: whose record it is, the program's version, and the
/// squadrons' names in the language in use.
void writeFoundations(SqliteFile& file, const Database& career, const char* version);
/// Replaces what is known under the key.
void writeMeta(SqliteFile& file, const char* key, const zel::String& value);
