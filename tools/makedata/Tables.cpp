#include "tools/makedata/Tables.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace tables {

namespace {

struct NationCode {
    std::string_view name;
    std::string_view code;
};

constexpr NationCode Nations[] = {
    {"France", "101"}, {"England", "102"}, {"USA", "103"}, {"Germany", "501"}};

// Which pilots the lists serve, in the order in which the program loads them.
constexpr const char* NameFiles[] = {"France_1st.txt",  "England_1st.txt", "Germany_1st.txt",
                                     "USA_1st.txt",     "France_2nd.txt",  "England_2nd.txt",
                                     "Germany_2nd.txt", "USA_2nd.txt"};

constexpr std::string_view SquadronHeader = "key,nation,name,aircraft,from,until,skin,source";
constexpr std::string_view AceHeader = "name,nation,born,victories,fate,fate_date,source";
constexpr std::string_view PostingHeader = "name,key,from,until,acelevel";

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

std::vector<std::string> split(const std::string& text, char delimiter) {
    std::vector<std::string> parts(1);
    for (char character : text) {
        if (character == delimiter)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

/// A file as lines, each with its number; where it stands is kept for the faults.
class LineSource {
public:
    LineSource(const std::string& folder, const std::string& file, Faults& faults)
        : file(file), faults(faults) {
        std::ifstream stream(std::filesystem::path(folder) / file, std::ios::binary);
        if (!stream)
            faults.push_back(file + ":0: the file can't be read");
        for (std::string text; std::getline(stream, text);) {
            if (!text.empty() && text.back() == '\r')
                text.pop_back();
            lines.push_back(text);
        }
    }

    /// Reports on the line of that index.
    void fault(size_t index, const std::string& what) {
        faults.push_back(file + ":" + std::to_string(index + 1) + ": " + what);
    }

    std::string file;
    std::vector<std::string> lines;

private:
    Faults& faults;
};

/// The rows behind the header, each of as many fields as the header has; others are faults.
class Table : public LineSource {
public:
    struct Row {
        size_t line; // index
        std::vector<std::string> fields;
    };

    Table(const std::string& folder, const std::string& file, std::string_view header,
          Faults& faults)
        : LineSource(folder, file, faults) {
        if (lines.empty())
            return;
        if (lines[0] != header) {
            fault(0, "the header must be \"" + std::string(header) + "\"");
            return;
        }
        const size_t count = split(lines[0], ',').size();
        for (size_t i = 1; i < lines.size(); ++i)
            addRow(i, count);
    }

    std::vector<Row> rows;

private:
    void addRow(size_t index, size_t count) {
        const std::string& line = lines[index];
        const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
        if (!std::all_of(line.begin(), line.end(), isPlain))
            return fault(index, "only plain ASCII goes into a table");
        std::vector<std::string> fields = split(line, ',');
        if (fields.size() != count)
            return fault(index, std::to_string(fields.size()) + " fields where the header has " +
                                    std::to_string(count));
        for (const std::string& field : fields)
            if (!field.empty() && (field.front() == ' ' || field.back() == ' '))
                return fault(index, "blanks around \"" + field + "\"");
        rows.push_back({index, std::move(fields)});
    }
};

bool isKeyOf(const std::string& key, const std::string& nation) {
    if (key.size() != 6 || !std::all_of(key.begin(), key.end(), isDigit))
        return false;
    return std::any_of(std::begin(Nations), std::end(Nations), [&](const NationCode& known) {
        return known.name == nation && key.compare(0, 3, known.code) == 0;
    });
}

bool isNation(const std::string& nation) {
    return std::any_of(std::begin(Nations), std::end(Nations),
                       [&](const NationCode& known) { return known.name == nation; });
}

// What the simulator can hold in a name and every system in a file's name.
bool isPilotName(const std::string& name) {
    const auto isAllowed = [](char character) {
        return isLetter(character) || std::string_view(" .'-").find(character) != std::string::npos;
    };
    return !name.empty() && name.size() <= LongestPilotName && isLetter(name.front()) &&
           name.find("  ") == std::string::npos && std::all_of(name.begin(), name.end(), isAllowed);
}

/// Reports what is wrong with the two dates; true if nothing is.
bool checkDates(Table& table, size_t line, const std::string& from, const std::string& until) {
    for (const std::string& date : {from, until})
        if (!isDate(date)) {
            table.fault(line, "\"" + date + "\" is no date: write yyyymmdd");
            return false;
        }
    if (until < from)
        table.fault(line, "it ends on " + until + ", before it begins on " + from);
    return until >= from;
}

// The check that a type is one of the simulator's is made on the finished files, by the checker
// that players have too: it knows the aircraft.
void readSquadrons(Table& table, Tables& tables) {
    std::set<std::string> seen;
    for (const Table::Row& row : table.rows) {
        const std::vector<std::string>& f = row.fields;
        const SquadronRow squadron{f[0], f[3], f[4], f[5], f[6]};
        if (!isKeyOf(squadron.key, f[1]))
            table.fault(row.line, "\"" + squadron.key + "\" is no key of " + f[1] +
                                      ": write its code and three digits");
        const auto isWord = [](const std::string& text) {
            return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
                return isDigit(character) || isLower(character);
            });
        };
        if (!isWord(squadron.aircraft))
            table.fault(row.line, "\"" + squadron.aircraft + "\" can't be an aircraft");
        if (squadron.skin.find_first_of(" =") != std::string::npos)
            table.fault(row.line, "a skin's name holds no blank and no \"=\"");
        static_cast<void>(checkDates(table, row.line, squadron.from, squadron.until));
        if (!seen.insert(squadron.key + squadron.aircraft + squadron.from).second)
            table.fault(row.line, squadron.key + " has " + squadron.aircraft + " from " +
                                      squadron.from + " twice");
        tables.squadrons.push_back(squadron);
    }
}

/// The aces' names with the index of their line.
std::map<std::string, size_t> readAces(Table& table) {
    std::map<std::string, size_t> aces;
    std::set<std::string> seen;
    for (const Table::Row& row : table.rows) {
        const std::string& name = row.fields[0];
        if (!isPilotName(name))
            table.fault(row.line, "\"" + name + "\" can't be a pilot's name: at most " +
                                      std::to_string(LongestPilotName) +
                                      " letters, blanks, points, apostrophes and hyphens");
        if (!isNation(row.fields[1]))
            table.fault(row.line, "there is no nation \"" + row.fields[1] + "\"");
        // Names become files, and not every system tells capitals apart.
        if (!seen.insert(lowered(name)).second)
            table.fault(row.line, name + " is there twice");
        aces.emplace(name, row.line);
    }
    return aces;
}

void checkPosting(Table& table, size_t line, const PostingRow& posting,
                  const std::set<std::string>& keys) {
    if (keys.count(posting.key) == 0)
        table.fault(line, "there is no squadron " + posting.key);
    if (posting.aceLevel.size() != 1 || posting.aceLevel[0] < '0' || posting.aceLevel[0] > '2')
        table.fault(line, "\"" + posting.aceLevel + "\" is no acelevel: write 0, 1 or 2");
    static_cast<void>(checkDates(table, line, posting.from, posting.until));
}

void readPostings(Table& table, Table& aceTable, std::map<std::string, size_t> aces,
                  Tables& tables) {
    std::set<std::string> keys;
    for (const SquadronRow& row : tables.squadrons)
        keys.insert(row.key);
    std::map<std::string, PostingRow> last; // of each ace
    for (const Table::Row& row : table.rows) {
        const std::vector<std::string>& f = row.fields;
        const PostingRow posting{f[0], f[1], f[2], f[3], f[4]};
        checkPosting(table, row.line, posting, keys);
        const auto before = last.find(posting.name);
        if (before == last.end() && aces.erase(posting.name) == 0)
            table.fault(row.line, "\"" + posting.name + "\" is no ace of aces.csv");
        if (before != last.end() && posting.from <= before->second.until)
            table.fault(row.line, posting.name + " is with " + before->second.key + " until " +
                                      before->second.until +
                                      ": a posting begins behind the one before it");
        last[posting.name] = posting;
        tables.postings.push_back(posting);
    }
    for (const auto& [name, line] : aces)
        aceTable.fault(line, name + " has no posting in postings.csv and would never join");
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
            source.fault(i, "\"" + name + "\" can't be a name: letters, \"'\" and \"-\" alone");
        if (!seen.insert(lowered(name)).second)
            source.fault(i, name + " is there twice");
        list.names.push_back(name);
    }
    if (list.names.empty())
        source.fault(0, "the list is empty");
    tables.nameLists.push_back(std::move(list));
}

} // namespace

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

bool readTables(const std::string& folder, Tables& tables, Faults& faults) {
    Table squadrons(folder, "history/squadrons.csv", SquadronHeader, faults);
    readSquadrons(squadrons, tables);
    Table aces(folder, "history/aces.csv", AceHeader, faults);
    Table postings(folder, "history/postings.csv", PostingHeader, faults);
    readPostings(postings, aces, readAces(aces), tables);
    for (const char* file : NameFiles) {
        LineSource source(folder, std::string("names/") + file, faults);
        readNames(source, tables);
    }
    return faults.empty();
}

} // namespace tables
