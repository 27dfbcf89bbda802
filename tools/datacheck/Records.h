#pragma once

#include <string>
#include <vector>

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// A line of a squadron or pilot file, its tokens sorted out. What the line doesn't hold is empty.
struct Entry {
    int32_t file; // index into Record::files
    int32_t line; // as an editor counts
    std::string date;
    std::string until;
    std::string action;
    std::string aircraft;
    std::string skin;
    std::string unit;
    std::string aceLevel;
    std::string acePotential;
};

/// A squadron or a pilot as the program puts it together: the lines of the delivered file and
/// behind them those of the player's file of the same name.
struct Record {
    zel::String name; // the files' name without its extension
    std::vector<zel::String> files;
    std::vector<Entry> entries;

    const zel::String& fileOf(const Entry& entry) const {
        return files[static_cast<size_t>(entry.file)];
    }
};

/// Reads Historical/KIND and Custom/KIND below the data folder, in the program's order. Reports
/// what is wrong with the files and with the form of their lines, whatever they hold: lines too
/// long or too many, blanks, tokens, keys, dates, and names that differ by capitals only.
std::vector<Record> readRecords(const zel::String& dataFolder, const zel::String& kind,
                                Faults& faults);

} // namespace datacheck
