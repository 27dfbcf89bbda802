#pragma once

#include <cstdint>
#include <vector>

#include "app/book/Honours.h"
#include "app/book/PilotRows.h"
#include "app/career/Aircraft.h"
#include "engine/core/String.h"

class Database;
class SqliteFile;

struct PilotVictory {
    int32_t date = 0; // yyyymmdd
    zel::String victim;
    zel::String machine; // identifier, or the type in the log if it isn't in the plan
    bool hasDied = false;
};

/// A pilot comes to a squadron, or his service ends.
struct PilotPosting {
    enum Kind : uint8_t { Came, Moved, Succeeded, Died };

    Kind kind = Came;
    int32_t date = 0;
    int32_t squadron = -1; // from then on; indices of the career
    int32_t from = -1;     // Moved
    zel::String other;     // Succeeded: the predecessor; Died: who killed him, empty if nobody did
};

/// The service of one pilot of the career: the player's record of service, or anybody's page.
struct PilotRecord {
    int32_t pilot = -1; // index of the career
    zel::String name;
    int32_t nation = 0; // code, that of his squadron
    bool isAlive = false;
    int32_t squadron = -1; // the present or the last one
    int32_t since = 0;     // yyyymmdd; the first day of his service, 0 if unknown
    bool isSinceKnown =
        true;             // false if a gap of the record comes before it: he may have served longer
    int32_t until = 0;    // today, or the day of his death
    int32_t missions = 0; // by the save, as is victoryCount
    /// The player's flights: those in the record, or by the save if it has more after a gap. Of
    /// others their missions.
    int32_t flown = 0;
    int32_t victoryCount = 0;
    std::vector<PilotVictory> victories; // those in the record, which may be fewer
    std::vector<PilotPosting> postings;
    std::vector<int32_t> flights; // days of the player's flights; of others none are known
    /// The input for the honours. What only the save has is dated to the last day of the last
    /// gap.
    PilotService served;
    Honours honours;
    const RealAce* real = nullptr; // who he was, if he is a pilot of history

    bool isUnreadable = false; // the record: only what the save has of him is known

    int32_t unrecorded() const { return victoryCount - int32_t(victories.size()); }
};

/// Reads what the record has of a pilot: the player's and his predecessors' by their flights, those
/// of others by the rows of pilots, which are gathered first. Without those the time of his service
/// is searched, which takes long. On error: what the save has of him, without rank and decorations,
/// and the file has failed.
PilotRecord readPilot(SqliteFile& record, const Database& career, const BookTables& tables,
                      int32_t index, PilotRows* rows = nullptr);

/// How often each machine is among the victories, the most frequent first.
struct MachineCount;
std::vector<MachineCount> machinesOf(const PilotRecord& pilot);
/// The shape of a machine, by its identifier or the type in the log.
Shape shapeOf(const zel::String& machine);
/// The pilots whose names contain the text, without regard to case and accents, the best first. If
/// some have exactly that name, only they, and only the player if he is among them.
std::vector<int32_t> pilotsNamed(const Database& career, std::string_view text);
