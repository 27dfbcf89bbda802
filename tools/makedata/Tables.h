#pragma once

#include <string>
#include <vector>

#include "tools/common/Finding.h"

/// The history as tables that a person can read and edit, checked as they are read. The tables in
/// data/history/ and data/names/ are the one source of the game's squadron, pilot and name files.
namespace tables {

/// One type of one squadron, or the time of one that flies none of the simulator's types. A
/// squadron has several rows, which may overlap.
struct SquadronRow {
    std::string key;      // six digits, the nation's code first
    std::string aircraft; // the simulator's identifier, such as "spad13"; empty for two-seater
                          // units: no type fits
    std::string from;     // yyyymmdd; empty, with until, for a type that doesn't date its squadron
    std::string until;    // yyyymmdd
    std::string skin;     // empty for the simulator's standard paint
};

/// One ace's time with one squadron. An ace's rows are adjacent, in the order of their dates.
struct PostingRow {
    std::string name;
    std::string key;
    std::string from;         // yyyymmdd
    std::string until;        // yyyymmdd
    std::string aceLevel;     // "0" to "2"
    std::string acePotential; // the ace's skill, "1" to "255"; empty to draw it from his level
};

/// The first or last names of one nation, for the pilots that the game invents.
struct NameList {
    std::string file; // its name in the folder Names
    std::vector<std::string> names;
};

/// All tables of data/history and data/names.
struct Tables {
    std::vector<SquadronRow> squadrons;
    std::vector<PostingRow> postings;
    std::vector<NameList> nameLists;
};

/// Reads history/squadrons.csv, aces.csv and postings.csv and the eight lists of names/ in the
/// folder. Returns all findings; the tables are valid if there are none.
[[nodiscard]] tools::Findings readTables(const std::string& folder, Tables& tables);

} // namespace tables
