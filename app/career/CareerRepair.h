#pragma once

#include <cstdint>
#include <vector>

#include "app/career/NewCareer.h"

class Database;

/// The years that a save file can be of: from a career's first day to a little past the war.
constexpr int32_t FirstSaveYear = FirstDayOfCareer / 10000;
constexpr int32_t LastSaveYear = 1919;

/// What readContent() has found out about a save file's records.
struct Soundness {
    bool pilots = false;           // each names a squadron, and a file or none
    bool lines = true;             // the data files name existing lines, or none
    bool files = true;             // nothing else about a data file or its lines is impossible
    int32_t living = 0;            // pilots
    std::vector<int32_t> doubtful; // pilots about whom something else may be impossible
};

/// What was fixed in a career when it was loaded, as counts of faults.
struct CareerRepairs {
    bool changed = false;     // it isn't as it was saved: changed or damaged by something else
    bool recovered = false;   // it was missing, and another file was used (SaveCheck::source)
    bool endedEarly = false;  // the file was cut off
    int32_t references = 0;   // of data files, to nothing or to one another's pilots
    int32_t pilots = 0;       // without a squadron, or of a file that isn't there
    int32_t places = 0;       // in squadrons
    int32_t invitation = 0;   // values out of range
    int32_t values = 0;       // names, nations and figures that can't be
    bool playerMoved = false; // the player was in no squadron, and is another pilot now
    int32_t surplus = 0;      // bytes after the end

    /// How many of the career's values were wrong.
    int32_t faults() const { return references + pilots + places + invitation + values; }
    bool any() const { return changed || recovered || isFixed(); }
    /// Whether anything had to be put right.
    bool isFixed() const { return endedEarly || playerMoved || surplus > 0 || faults() > 0; }
};

/// Fixes what breaks the invariants of a career that came from a file, with a line in the log for
/// each kind of fault. Adds to `repairs`; what is sound is not checked again. False if too little
/// is left for a career to go on.
bool repairCareer(Database& career, const Soundness& soundness, CareerRepairs& repairs);
