#pragma once

#include <cstdint>

#include "app/book/PilotRows.h"
#include "engine/core/String.h"

class CareerRecord;
class Database;

/// The pilot whose page is open, and the way back from it. The player's page is his record of
/// service.
class PilotPages {
public:
    /// REQUIRES: the record outlives it.
    explicit PilotPages(CareerRecord& record) : record(record) {}

    /// Opens the pilot's page from that screen. Returns the screen that shows it.
    const char* open(const Database& career, int32_t pilot, const zel::String& from);
    int32_t pilot() const { return shown; } // index of the career; -1 before the first one

    /// Call this when the page is entered. Returns the screen that it was opened from, empty for a
    /// record of service that no list of pilots has led to.
    zel::String takeOrigin();
    /// The player presses the way back.
    void goBack() { isGoingBack = true; }
    /// Call this when a list is entered. Returns the pilot from whose page the player comes back to
    /// that screen, or -1.
    int32_t takeReturn(const zel::String& screen);

    /// Reads a part of what the pages need from the record, while a list is shown. Call this in
    /// each of its frames, so that no page has to wait for all of it.
    void readOn(const Database& career);
    PilotRows rows;

private:
    CareerRecord& record;
    int32_t shown = -1;
    zel::String origin; // until the page is entered
    zel::String list;   // the screen that was pressed on last
    bool isGoingBack = false;
    bool hasReadAll = false;
};
