#pragma once

#include <string>
#include <vector>

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// A line of a squadron or pilot file, split into its values. The values of missing keys are empty.
struct HistoryLine {
    size_t file;    // index into HistoryRecord::files
    int32_t number; // as an editor counts, from 1
    std::string date;
    std::string until;
    std::string action;
    std::string aircraft;
    std::string skin;
    std::string unit;
    std::string aceLevel;
    std::string acePotential;
};

/// A squadron or a pilot as the game puts it together: the lines of the delivered file, then those
/// of the player's file of the same name.
struct HistoryRecord {
    zel::String name; // of its files, without their ending
    std::vector<zel::String> files;
    std::vector<HistoryLine> lines;

    const zel::String& fileOf(const HistoryLine& line) const { return files[line.file]; }
};

/// Reads the folders of one kind, "Squadrons" or "Pilots", in the data folder, as the game does.
/// Reports faults of the files and of the form of their lines: lines that are too long or too many,
/// blanks, tokens, keys, dates, and names that differ in case only.
std::vector<HistoryRecord> readHistory(const zel::String& dataFolder, const zel::String& kind,
                                       Findings& findings);

} // namespace datacheck
