#pragma once

#include <optional>
#include <utility>

#include "app/book/RecordedFlight.h"
#include "app/book/Theatre.h"

class CareerRecord;
class Flight;

/// The flight that the combat report and the sketch show: the one that was just reported, after
/// which the war moves on, or an older one of the log book.
///
/// A page is left after the next one is entered. So each page remembers by itself whether leaving
/// it ends the day.
class ReportPages {
public:
    /// REQUIRES: both outlive this.
    ReportPages(Flight& flight, CareerRecord& record) : flight(flight), record(record) {}

    /// The pages show that flight of the record, or the one that was just reported for 0.
    void choose(int32_t number) { chosen = number; }
    bool isFromBook() const { return chosen > 0; }

    /// Call this when the report is entered. A report that was found is taken over and emptied:
    /// the same flight isn't shown twice.
    void enterReport();
    /// The flight; nothing after a mission that wasn't flown, or if the record can't be read.
    std::optional<RecordedFlight> shown() const;
    /// Where it began. False if that isn't known.
    bool base(const RecordedFlight& of, MapPoint& place) const;
    /// The log book is opened from another screen than the office.
    void openBook(const char* from) { bookOrigin = from; }
    /// Call this when the log book is entered. Returns where it leads back to.
    const char* takeBookOrigin() { return std::exchange(bookOrigin, "MenuGameMain"); }

    /// The screen to which the pages lead.
    const char* next() const { return isFromBook() ? "MenuGameLogbook" : "MenuGameAdvance"; }

    /// The player leaves the flight of the day: the war moves on. Does nothing, this once, if the
    /// day is held.
    void endDay();
    /// The page that shows the flight of the day is left for the question whether to close the
    /// window, and the player may come back to it: its endDay() does nothing.
    void holdDay() { isHeld = true; }
    /// The player's pilot who fell on the day that ended last; -1 for nobody, and from the second
    /// call on.
    int32_t takeFallen() { return std::exchange(fallen, -1); }

private:
    Flight& flight;
    CareerRecord& record;
    int32_t chosen = 0;
    const char* bookOrigin = "MenuGameMain";
    std::vector<PilotReport> reports; // of the day's flight
    bool hasReport = false;
    bool isHeld = false; // the day, until the page is left
    int32_t fallen = -1;
};
