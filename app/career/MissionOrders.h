#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "app/career/PlannedPlane.h"
#include "engine/core/String.h"

class Database;

/// The orders for a mission whose file is written: all that the report of its flight needs, so that
/// a later run of the program can make it too.
struct MissionOrders {
    int32_t careerNumber = 0;
    int32_t date = 0;      // as Calendar::dateNumber()
    zel::String file;      // name of the mission file, without its folder
    int64_t size = 0;      // bytes of that file
    zel::String hash;      // checksumOf them; empty if the file couldn't be read
    bool isFlyable = true; // the player has a machine for it
    float x = 0;           // where the fight is: metres to the north and to the east
    float z = 0;
    std::vector<PlannedPlane> planes;   // the player's first
    std::vector<zel::String> knownLogs; // first pieces of the logs that are of earlier flights
    /// checksumOf the paths of their folders, with blanks between; empty in those of schema 3.
    zel::String logFolders;
    /// The log whose report was carried into the career and then lost, because the player went back
    /// to an earlier page. It counts as new; empty for none.
    zel::String reportedLog;
};

/// Keeps the orders of a career, so that they survive the end of the program. CareerRecord is one.
class OrdersBook {
public:
    virtual ~OrdersBook() = default;

    /// The orders for the career's present day; null if none are out. They are the same object
    /// until keep() replaces them, another career or page is loaded, or their report has come.
    virtual std::shared_ptr<const MissionOrders> ordersOut(const Database& career) const = 0;
    /// Replaces the orders of their day. When it returns true they are committed and synced, or the
    /// career has no save yet and its first one will hold them. On error: false, a log line; they
    /// are out until the program ends, and the next save tries again.
    [[nodiscard]] virtual bool keep(const Database& career, MissionOrders orders) = 0;
    /// Whether a flight that was reported has that log. `hash`: checksumOf its first piece.
    virtual bool isReported(const zel::String& log, const zel::String& hash) = 0;
    /// The day of orders that don't apply, although their flight was not reported: a day after the
    /// career's own, if they follow a save that was never made or that the player went back from;
    /// an earlier one, if the war has moved on without a report. 0 for none.
    virtual int32_t voidOrders(const Database& career) const = 0;
};
