#pragma once

#include <cstdint>
#include <vector>

#include "app/career/PilotReport.h"

/// Finds the records of a flight by the simulator's ids of the planes and of the pilots' bodies,
/// without a search through all records: a hash table with open addressing, since a long log needs
/// some hundred thousand lookups.
class ObjectIndex {
public:
    /// Records may be appended at any time, or all be removed. REQUIRES: the records outlive the
    /// index, and the ids of those it knows change through setBody alone.
    explicit ObjectIndex(std::vector<PilotReport>& records) : records(records) {}

    /// Index of the first record with that plane or body; -1 for none, and for a negative id.
    int32_t find(int32_t id);
    /// Index of the first record with that plane, whatever its id; -1 for none.
    int32_t findPlane(int32_t id);
    /// Gives the record a body, in place of the one it had. REQUIRES: a record's index.
    void setBody(int32_t record, int32_t body);
    /// Clears the index. Records that still exist are indexed again at the next search.
    void clear();

private:
    static constexpr int32_t None = -1;
    struct Slot {
        int32_t id = 0;
        int32_t plane = None; // the first record with this id, by its plane
        int32_t body = None;  // likewise, by its pilot's body
        bool isUsed = false;
    };

    const Slot* slotOf(int32_t id) const;
    Slot& makeSlot(int32_t id);
    void grow();
    void addRecords();
    void addBody(int32_t record);

    std::vector<PilotReport>& records;
    size_t known = 0;        // records that the table holds
    std::vector<Slot> slots; // a power of two, at least twice the used ones
    size_t used = 0;
    int32_t shift = 0;         // from a 32-bit hash to a position in slots
    bool sharesBodies = false; // two records have had one body
};
