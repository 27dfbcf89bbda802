#pragma once

#include "app/mission/SimulatorChecks.h"
#include "app/mission/SimulatorSearch.h"

// What the page of the simulator says, in the language in use. The examples are the English ones.

enum class CheckMark { Yes, No, Open };

/// A line of the form.
struct CheckLine {
    CheckMark mark = CheckMark::Open;
    zel::String text;
};

/// "Registry: C:\Games\Rise of Flight", with a folder that fits the row.
zel::String placeText(const SimulatorPlace& place);
/// How the folders were found; or that nothing was found, or nothing yet. isGone: the settings name
/// a folder that has no simulator.
zel::String foundText(const std::vector<SimulatorPlace>& places, bool isSearching, bool isGone);
/// The four lines for a place, or for none: the folder, the text log, writing missions, the last
/// log. mustWrite: startup.cfg couldn't be changed, so the player has to.
std::vector<CheckLine> checkLines(const SimulatorChecks& checks, bool hasPlace, bool mustWrite);
/// "One thing is missing before you can fly."
zel::String statusText(const std::vector<CheckLine>& lines, bool hasPlace, bool isSearching);
