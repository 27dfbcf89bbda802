#pragma once

#include <cstdint>
#include <vector>

#include "app/career/CareerEvents.h"
#include "app/record/RecordPages.h"
#include "engine/core/String.h"

class Database;

/// What has happened in a career since it was last written to the record. Names of pilots aren't
/// copied: a pilot keeps his index and his name for the whole career. Dates are yyyymmdd, squadrons
/// and pilots indices of the career.
struct RecordEvents {
    struct DatedFlight {
        int32_t date;
        FlownMission mission;
        zel::String log; // its first piece, without folder
        zel::String logHash;
        int32_t squadron; // the player's
        zel::String base; // of that squadron, in English
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
        int32_t squadron; // the player's
        zel::String name; // of the base, in English
        bool onChannelMap;
        float x, z; // metres to the north and to the east
    };

    std::vector<RecordGap> gaps;
    std::vector<DatedFlight> flights;
    std::vector<DatedVictory> victories;
    std::vector<DatedPosting> postings;
    std::vector<DatedBase> bases;

    // Each adds an event of the career's present day. Its other values come from the career as it
    // is at that moment.

    void add(const Database& career, const Victory& victory);
    void add(const Database& career, const Posting& posting);
    void add(const Database& career, const FlownMission& mission);
    /// The present base of the player's squadron.
    void addBase(const Database& career);

    /// Whether there is a flight with that log. log: the name of its first piece, without folder.
    /// hash: that piece's checksum.
    bool hasFlight(const zel::String& log, const zel::String& hash) const;
    /// Keeps the capacity for the next period.
    void clear() {
        gaps.clear();
        flights.clear();
        victories.clear();
        postings.clear();
        bases.clear();
    }
    bool empty() const {
        return gaps.empty() && flights.empty() && victories.empty() && postings.empty() &&
               bases.empty();
    }
};
