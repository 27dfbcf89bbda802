#include "tools/makedata/Tables.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>

#include "tools/common/PilotNames.h"
#include "tools/makedata/TableText.h"

namespace tables {

namespace {

struct NationRow {
    std::string_view name;
    std::string_view code;
};

constexpr NationRow Nations[] = {
    {"France", "101"}, {"England", "102"}, {"USA", "103"}, {"Germany", "501"}};

// The lists of the names folder, in the order in which the game loads them.
constexpr const char* NameFiles[] = {"France_1st.txt",  "England_1st.txt", "Germany_1st.txt",
                                     "USA_1st.txt",     "France_2nd.txt",  "England_2nd.txt",
                                     "Germany_2nd.txt", "USA_2nd.txt"};

constexpr std::string_view SquadronHeader = "key,nation,name,aircraft,from,until,skin,source";
constexpr std::string_view AceHeader =
    "name,nation,born,victories,fate,fate_date,acepotential,source";
constexpr std::string_view PostingHeader = "name,key,from,until,acelevel,from_is,until_is,source";
// How well a posting's first and last day are known; docs/history.md says what the words mean.
constexpr std::string_view FirstDays[] = {"day", "unit", "victory", "month"};
constexpr std::string_view LastDays[] = {"day", "fate", "armistice", "victory", "month"};

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLower(char character) { return character >= 'a' && character <= 'z'; }
bool isLetter(char character) {
    return isLower(character) || (character >= 'A' && character <= 'Z');
}

std::string lowered(std::string text) {
    for (char& character : text)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return text;
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

/// Whether the text can be the simulator's name of an aircraft.
bool isIdentifier(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return isDigit(character) || isLower(character);
    });
}

/// Whether the text is eight digits, yyyymmdd, that name a day of the calendar.
bool isDate(std::string_view text) {
    if (text.size() != 8 || !std::all_of(text.begin(), text.end(), isDigit))
        return false;
    const int32_t number = std::stoi(std::string(text));
    const int32_t year = number / 10000;
    const int32_t month = number / 100 % 100;
    constexpr int32_t Days[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return false;
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return number % 100 >= 1 && number % 100 <= Days[month] + (month == 2 && isLeap ? 1 : 0);
}

bool isKeyOf(const std::string& key, const std::string& nation) {
    if (key.size() != 6 || !std::all_of(key.begin(), key.end(), isDigit))
        return false;
    return std::any_of(std::begin(Nations), std::end(Nations), [&](const NationRow& known) {
        return known.name == nation && key.compare(0, 3, known.code) == 0;
    });
}

bool isNation(const std::string& nation) {
    return std::any_of(std::begin(Nations), std::end(Nations),
                       [&](const NationRow& known) { return known.name == nation; });
}

// Characters that the simulator accepts in a name and every system in a file name.
bool isPilotName(const std::string& name) {
    const auto isAllowed = [](char character) {
        return isLetter(character) || std::string_view(" .'-").find(character) != std::string::npos;
    };
    return !name.empty() && name.size() <= tools::LongestAceName && isLetter(name.front()) &&
           name.find("  ") == std::string::npos && std::all_of(name.begin(), name.end(), isAllowed);
}

void checkDates(CsvTable& table, size_t line, const std::string& from, const std::string& until) {
    for (const std::string& date : {from, until})
        if (!isDate(date))
            return table.report(line, quoted(date) + " is not a date", "write yyyymmdd");
    if (until < from)
        table.report(line, "it ends on " + until + ", before it begins on " + from);
}

/// Whether the row only says what the squadron may fly, and not when.
bool isTimeless(const SquadronRow& squadron) {
    return squadron.from.empty() && squadron.until.empty() && !squadron.aircraft.empty();
}

void checkAircraft(CsvTable& table, size_t line, const SquadronRow& squadron) {
    if (!squadron.aircraft.empty() && !isIdentifier(squadron.aircraft))
        table.report(line, quoted(squadron.aircraft) + " can't be an aircraft");
    if (squadron.aircraft.empty() && !squadron.skin.empty())
        table.report(line, "a skin without an aircraft");
}

// Whether the simulator has the aircraft is checked in the finished files, by wingtally-datacheck.
void readSquadrons(CsvTable& table, Tables& tables) {
    std::set<std::string> seen;
    for (const CsvTable::CsvRow& row : table.rows) {
        const std::vector<std::string>& f = row.fields;
        const SquadronRow squadron{f[0], f[3], f[4], f[5], f[6]};
        if (!isKeyOf(squadron.key, f[1]))
            table.report(row.line, quoted(squadron.key) + " is not a key of " + f[1],
                         "write its code and three digits");
        checkAircraft(table, row.line, squadron);
        if (squadron.skin.find_first_of(" =") != std::string::npos)
            table.report(row.line, "a blank or \"=\" in a skin's name");
        if (!isTimeless(squadron))
            checkDates(table, row.line, squadron.from, squadron.until);
        if (!seen.insert(squadron.key + squadron.aircraft + squadron.from).second)
            table.report(row.line, squadron.key + " has " + squadron.aircraft + " from " +
                                       squadron.from + " twice");
        tables.squadrons.push_back(squadron);
    }
}

/// What aces.csv says about a pilot.
struct AceRow {
    size_t line; // index
    std::string acePotential;
};
using Aces = std::map<std::string, AceRow>;

/// Whether the text is empty or a skill that the career can hold, 1 to 255.
bool isPotential(const std::string& text) {
    if (text.size() > 3 || !std::all_of(text.begin(), text.end(), isDigit))
        return false;
    return text.empty() || (std::stoi(text) >= 1 && std::stoi(text) <= 255);
}

/// The aces by name.
Aces readAces(CsvTable& table) {
    Aces aces;
    std::set<std::string> seen;
    for (const CsvTable::CsvRow& row : table.rows) {
        const std::string& name = row.fields[0];
        if (!isPilotName(name))
            table.report(row.line, quoted(name) + " can't be a pilot's name",
                         "write at most " + std::to_string(tools::LongestAceName) +
                             " letters, blanks, points, apostrophes and hyphens");
        if (!isNation(row.fields[1]))
            table.report(row.line, "there is no nation " + quoted(row.fields[1]));
        if (!isPotential(row.fields[6]))
            table.report(row.line, quoted(row.fields[6]) + " is not an acepotential",
                         "write 1 to 255, or nothing");
        // Names become files, and not every system distinguishes capitals.
        if (!seen.insert(lowered(name)).second)
            table.report(row.line, name + " occurs twice");
        aces.emplace(name, AceRow{row.line, row.fields[6]});
    }
    return aces;
}

template <size_t Size>
void checkWord(CsvTable& table, size_t line, const std::string& word,
               const std::string_view (&words)[Size]) {
    if (std::find(std::begin(words), std::end(words), word) == std::end(words))
        table.report(line, quoted(word) + " doesn't say how well a day is known");
}

void checkPosting(CsvTable& table, const CsvTable::CsvRow& row, const PostingRow& posting,
                  const std::set<std::string>& keys) {
    const size_t line = row.line;
    if (keys.count(posting.key) == 0)
        table.report(line, "there is no squadron " + posting.key);
    if (posting.aceLevel.size() != 1 || posting.aceLevel[0] < '0' || posting.aceLevel[0] > '2')
        table.report(line, quoted(posting.aceLevel) + " is not an acelevel", "write 0, 1 or 2");
    checkDates(table, line, posting.from, posting.until);
    checkWord(table, line, row.fields[5], FirstDays);
    checkWord(table, line, row.fields[6], LastDays);
}

void readPostings(CsvTable& table, CsvTable& aceTable, const Aces& aces, Tables& tables) {
    std::set<std::string> keys;
    for (const SquadronRow& row : tables.squadrons)
        keys.insert(row.key);
    std::map<std::string, PostingRow> last; // of each ace
    for (const CsvTable::CsvRow& row : table.rows) {
        const std::vector<std::string>& f = row.fields;
        const auto ace = aces.find(f[0]);
        const PostingRow posting{f[0], f[1], f[2],
                                 f[3], f[4], ace != aces.end() ? ace->second.acePotential : ""};
        checkPosting(table, row, posting, keys);
        const auto before = last.find(posting.name);
        if (before == last.end() && ace == aces.end())
            table.report(row.line, quoted(posting.name) + " is not an ace of aces.csv");
        if (before != last.end() && posting.from <= before->second.until)
            table.report(row.line,
                         posting.name + " is with " + before->second.key + " until " +
                             before->second.until,
                         "begin a posting after the end of the one before it");
        last[posting.name] = posting;
        tables.postings.push_back(posting);
    }
    for (const auto& [name, ace] : aces)
        if (last.count(name) == 0)
            aceTable.report(ace.line,
                            name + " has no posting in postings.csv and would never join");
}

void readNames(LineSource& source, Tables& tables) {
    NameList list;
    list.file = source.file.substr(source.file.find('/') + 1);
    std::set<std::string> seen;
    for (size_t i = 0; i < source.lines.size(); ++i) {
        const std::string& name = source.lines[i];
        const auto isAllowed = [](char character) {
            return isLetter(character) || character == '\'' || character == '-';
        };
        if (name.empty() || !std::all_of(name.begin(), name.end(), isAllowed))
            source.report(i, quoted(name) + " can't be a name", "write letters, \"'\" and \"-\"");
        if (!seen.insert(lowered(name)).second)
            source.report(i, name + " occurs twice");
        list.names.push_back(name);
    }
    if (list.names.empty())
        source.report(0, "the list is empty");
    tables.nameLists.push_back(std::move(list));
}

} // namespace

tools::Findings readTables(const std::string& folder, Tables& tables) {
    tools::Findings findings;
    CsvTable squadrons(folder, "history/squadrons.csv", SquadronHeader, findings);
    readSquadrons(squadrons, tables);
    CsvTable aces(folder, "history/aces.csv", AceHeader, findings);
    CsvTable postings(folder, "history/postings.csv", PostingHeader, findings);
    readPostings(postings, aces, readAces(aces), tables);
    for (const char* file : NameFiles) {
        LineSource source(folder, std::string("names/") + file, findings);
        readNames(source, tables);
    }
    return findings;
}

} // namespace tables
