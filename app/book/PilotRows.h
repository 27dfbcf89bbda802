#pragma once

#include <cstdint>
#include <vector>

class SqliteFile;

/// Where the record has each pilot's victories and his death. The record has no index for that: it
/// would cost every save, and the war. This reads the tables once, in parts, and then what each
/// save adds. Only rows of saved pages are known; one that is cut off is forgotten with its page.
class PilotRows {
public:
    static constexpr int64_t All = INT64_MAX;

    /// Reads at most `most` more rows. Returns whether those of all pages are known. On error: the
    /// file has failed.
    bool gather(SqliteFile& record, int64_t most);

    /// The keys of his victories, ascending.
    std::vector<int64_t> victoriesOf(int32_t pilot) const;
    /// The key of his death's row; 0 for none.
    int64_t deathOf(int32_t pilot) const;
    // The keys up to which the rows are known.
    int64_t lastVictory() const { return victories.last; }
    int64_t lastPosting() const { return deaths.last; }

private:
    struct Row {
        int32_t key = 0;
        int32_t before = -1; // index of the same pilot's row before it; -1 for none
    };
    struct KnownRows {
        std::vector<Row> rows;
        std::vector<int32_t> newest; // by pilot, likewise
        int64_t last = 0;            // key
    };
    struct PageKeys {
        int64_t id = 0;
        uint64_t hash = 0; // of its checksum
        int64_t victory = 0, posting = 0;
    };

    static int32_t newestOf(const KnownRows& known, int32_t pilot);
    static PageKeys newestPage(SqliteFile& record);
    static uint64_t hashOf(SqliteFile& record, int64_t page);
    static void readOn(SqliteFile& record, const char* sql, int64_t until, int64_t& most,
                       KnownRows& known);

    PageKeys page; // all known rows are of it or of pages before it
    KnownRows victories;
    KnownRows deaths;
};
