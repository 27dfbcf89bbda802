#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "app/record/Shelf.h"
#include "engine/core/String.h"

/// The commands on the shelf of careers and on the pages of the current one. What they print is in
/// takeLines(), in the language in use. On error: false, and problem() says why.
class ShelfCommands {
public:
    ShelfCommands(Database& career, CareerRecord& record) : career(career), shelf(career, record) {}

    /// Ends what another run of the program left half done. Call this before anything is loaded.
    /// On error: false, and the reason is in the log.
    bool tidy() { return shelf.tidy(); }
    bool save() { return shelf.save() || fail(shelf.problem().english()); }
    /// A line for each career.
    bool careers();
    /// The career of that number is current afterwards, and not loaded.
    bool take(int32_t number);
    /// The career of that number is among those put away afterwards.
    bool putAway(int32_t number);
    /// A line for each page of the current career.
    bool pages();
    /// The page of that name is the present save afterwards, and not loaded.
    bool turnBack(const zel::String& name);

    /// The lines of the last commands. They are forgotten.
    std::vector<zel::String> takeLines() { return std::exchange(lines, {}); }
    const zel::String& problem() const { return trouble; }

private:
    bool fail(const zel::String& why);
    bool mayLeave();
    bool findCurrent(ShelvedCareer& current);

    Database& career;
    Shelf shelf;
    std::vector<zel::String> lines;
    zel::String trouble;
};
