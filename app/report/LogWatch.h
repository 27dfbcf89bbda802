#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Directory.h"
#include "engine/core/String.h"

/// First pieces of the simulator's logs.
constexpr const char* FirstPiecePattern = "*[0]*.txt";

/// Knows which of the simulator's logs are new since the mission was written.
///
/// The simulator begins its log half a minute into the flight, and the player may look in before he
/// has landed: a log that was looked at counts as new again once it has grown.
class LogWatch {
public:
    /// Takes the logs of that folder for known: whatever shows up later belongs to a later flight.
    void begin(const zel::String& folder);
    /// The names of the first pieces that have come since the last look, and of those looked at
    /// before whose logs have grown or are to be read again.
    std::vector<zel::String> look(const zel::String& folder);
    /// That log, of the last look, couldn't be read whole: the next look names it in any case.
    void readAgain(const zel::String& name);
    /// Whether the last look found a log that had grown since the one before: a flight goes on.
    bool isGrowing() const { return growing; }
    /// How many looks on end have found nothing new in the logs that were looked at, of which none
    /// told of the end of the mission; 0 as long as there is none.
    int32_t quietLooks() const { return quiet; }
    /// Whatever was looked at is done with, also if it grows.
    void settle();

private:
    struct Extent {
        zel::String name;
        int32_t pieces;
        int64_t bytes; // of all pieces
        bool isRead = true;
    };
    static Extent measure(const zel::String& folder, const zel::String& name);

    zel::Directory known;
    std::vector<Extent> lookedAt;
    bool growing = false;
    int32_t quiet = 0; // looks
};
