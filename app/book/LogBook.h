#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

class BookTables;
class Database;
class SqliteFile;

/// A number of machines of one type: an identifier of the aircraft table, or the type in the log
/// for a machine that isn't in the plan.
struct MachineCount {
    zel::String aircraft;
    int32_t count = 0;
};

/// Adds `count` machines of that name, which is listed once.
void addTo(std::vector<MachineCount>& machines, const zel::String& name, int32_t count = 1);
/// The most frequent first; those of equal count stay in the order in which they were met.
void sortByCount(std::vector<MachineCount>& machines);

/// One flight of the player.
struct BookFlight {
    int32_t number = 0; // from 1
    int32_t date = 0;   // yyyymmdd
    int32_t pilot = -1; // index of the career
    zel::String pilotName;
    int32_t squadron = -1;               // index of the career
    zel::String base;                    // in English, as the save has it
    zel::String aircraft;                // identifier
    std::vector<zel::String> companions; // of his side, in the plan's order
    std::vector<MachineCount> opponents; // who took part in the fight; the most frequent type first
    bool isNamed = false;                // the log names him: the next ones are known
    int32_t victories = 0;               // in this flight
    int32_t total = 0;                   // his victories with this flight
    int32_t injury = 0;                  // percent
    float damage = 0;                    // 1.0 is a destroyed plane
    bool isLost = false;                 // the plane
    bool isShotDown = false;
    bool hasLanded = false;
    bool isDead = false;
    zel::String pilotTitle;     // with rank and decorations; only if he fell in this flight
    zel::String successor;      // who took his place; empty for nobody
    zel::String successorTitle; // with his first rank
};

/// The player's flights from the record, those of his predecessors included.
///
/// A pilot's total begins with the victories that the save gives him and the record doesn't, as
/// after a gap, so that his last one is the save's.
struct LogBook {
    std::vector<BookFlight> flights;
    std::vector<MachineCount> victims; // of all flights by type, the most frequent first
    int32_t victories = 0;             // of all flights
    bool isUnreadable = false;         // there may be flights, but the record can't be read
    /// Whether the pilot of that flight fell in it.
    bool endsPilot(size_t flight) const { return flights[flight].isDead; }
    /// Full months from the first flight to the last one.
    int32_t months() const;
};

/// Reads the record, as CareerRecord::read gives it. On error: an empty book that is unreadable,
/// and the file has failed.
LogBook readLogBook(SqliteFile& record, const Database& career, const BookTables& tables);
