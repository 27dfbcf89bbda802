#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The history as tables that a person can read and mend, checked as they are read. They are the
/// one source of the program's squadron, pilot and name files; data/history/ and data/names/ hold
/// them.
namespace tables {

/// What is wrong, a line each: "file:line: what".
using Faults = std::vector<std::string>;

/// One type of one squadron. A squadron has several rows, which may overlap.
struct SquadronRow {
    std::string key;      // six digits, the nation's code first
    std::string aircraft; // the simulator's identifier, such as "spad13"
    std::string from;     // yyyymmdd
    std::string until;    // yyyymmdd
    std::string skin;     // empty for the simulator's standard paint
};

/// One ace's time with one squadron; an ace's rows stand together, in the order of their dates.
struct PostingRow {
    std::string name;
    std::string key;
    std::string from;     // yyyymmdd
    std::string until;    // yyyymmdd
    std::string aceLevel; // "0" to "2"
};

/// The first or last names of one nation, for the pilots whom the program invents.
struct NameList {
    std::string file; // without the folder, as the program looks for it
    std::vector<std::string> names;
};

struct Tables {
    std::vector<SquadronRow> squadrons;
    std::vector<PostingRow> postings;
    std::vector<NameList> nameLists;
};

/// The most characters of a named pilot: the simulator cuts a name at 31, and four of them go to
/// the "/" and the victories behind it.
constexpr size_t LongestPilotName = 27;

/// Whether the text is eight digits that name a day.
bool isDate(std::string_view text);

/// Reads history/squadrons.csv, aces.csv and postings.csv and the eight lists of names/ under the
/// folder. On error: false, the tables as far as they could be read, and every fault found.
[[nodiscard]] bool readTables(const std::string& folder, Tables& tables, Faults& faults);

} // namespace tables
