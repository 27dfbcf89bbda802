#pragma once

#include <string>
#include <vector>

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// A line of a squadron or pilot file, split into its values. Keys that it lacks are empty.
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
/// Reports what is wrong with the files and with the form of their lines, whatever they say: lines
/// that are too long or too many, blanks, tokens, keys, dates, and names that differ in capitals
/// only.
std::vector<HistoryRecord> readHistory(const zel::String& dataFolder, const zel::String& kind,
                                       Findings& findings);

} // namespace datacheck
