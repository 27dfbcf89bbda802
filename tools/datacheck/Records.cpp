#include "tools/datacheck/Records.h"

#include <algorithm>

#include "engine/core/Directory.h"
#include "engine/core/System.h"

namespace datacheck {

namespace {

constexpr size_t LongestLine = 255;
constexpr size_t MostLines = 256; // of one squadron or pilot, both folders together

struct Key {
    std::string_view name;
    std::string Entry::*value;
};

// Every key that the delivered files hold.
constexpr Key Keys[] = {
    {"date", &Entry::date},         {"until", &Entry::until},
    {"action", &Entry::action},     {"aircraft", &Entry::aircraft},
    {"skin", &Entry::skin},         {"unit", &Entry::unit},
    {"acelevel", &Entry::aceLevel}, {"acepotential", &Entry::acePotential},
};

std::string knownKeys() {
    std::string text;
    for (const Key& key : Keys)
        text += (text.empty() ? "" : " ") + std::string(key.name);
    return text;
}

/// Sorts one token into the entry; what is wrong with it, or an empty text.
zel::String readToken(std::string_view token, Entry& entry) {
    const zel::String quoted = zel::String("\"") + token + "\"";
    const size_t sign = token.find('=');
    if (sign == token.npos)
        return quoted + " is no key=value and isn't read; there are no comments, and a value holds "
                        "no blank";
    const zel::String name = zel::String(token.substr(0, sign)).toLower();
    const std::string_view value = token.substr(sign + 1);
    const auto key = std::find_if(std::begin(Keys), std::end(Keys),
                                  [&](const Key& known) { return name == known.name; });
    if (key == std::end(Keys))
        return quoted + " has an unknown key: the keys are " + knownKeys();
    if (value.empty())
        return quoted + " has no value: write one or take the token out";
    if (value.find('=') != value.npos)
        return quoted + " has a second \"=\": what follows it isn't read";
    if (!(entry.*key->value).empty())
        return name + "= stands twice in the line: make two lines of it";
    entry.*key->value = value;
    return {};
}

/// What is wrong with the line's blanks, or an empty text.
zel::String whyBlanks(std::string_view line) {
    if (line.find_first_not_of(' ') == line.npos)
        return "a line of blanks: take it out";
    if (line.front() == ' ' || line.back() == ' ')
        return "a blank at the line's start or end: take it out";
    if (line.find("  ") != line.npos)
        return "two blanks in a row: leave one";
    return {};
}

void checkDates(const zel::String& file, const Entry& entry, Faults& faults) {
    const auto check = [&](const char* key, const std::string& value) {
        if (!value.empty() && !isWarDate(value))
            faults.push_back({file, entry.line,
                              zel::String(key) + "=" + value +
                                  " is no date of the war: write year, month and day as 19170401"});
    };
    check("date", entry.date);
    check("until", entry.until);
    if (isWarDate(entry.date) && isWarDate(entry.until) && entry.until < entry.date)
        faults.push_back({file, entry.line,
                          zel::String("until=") + entry.until + " lies before date=" + entry.date +
                              ": exchange the two"});
}

/// A line that is too long is cut by the program; the tokens behind the cut are lost.
Entry readEntry(const zel::String& file, const TextLine& line, Faults& faults) {
    Entry entry{};
    entry.line = line.number;
    const std::string_view text = line.text.view();
    if (text.size() > LongestLine)
        faults.push_back({file, line.number,
                          zel::String("the line has ") + static_cast<int32_t>(text.size()) +
                              " characters and is cut behind 255: shorten it"});
    const zel::String reason = whyBlanks(text);
    if (!reason.empty())
        faults.push_back({file, line.number, reason});
    std::vector<zel::String> tokens;
    line.text.split(" ", tokens);
    for (const zel::String& token : tokens) {
        const std::string_view trimmed = zel::trimmed(token.view(), '\t');
        const zel::String fault = trimmed.empty() ? zel::String() : readToken(trimmed, entry);
        if (!fault.empty())
            faults.push_back({file, line.number, fault});
    }
    checkDates(file, entry, faults);
    return entry;
}

/// The name without an extension of three characters, by the program's own rule.
zel::String baseName(const zel::String& file) {
    const int32_t length = file.length();
    return length > 4 && file.view()[static_cast<size_t>(length) - 4] == '.' ? file.left(length - 4)
                                                                             : file;
}

class Reader {
public:
    Reader(std::vector<Record>& records, Faults& faults) : records(records), faults(faults) {}

    void readFolder(const zel::String& folder) {
        if (!zel::system::isDirectory(folder))
            return; // Custom is the player's
        const zel::Directory directory(folder, "*.*");
        std::vector<zel::String> seen; // in this folder
        for (int32_t i = 0; i < directory.count(); ++i) {
            if (directory.isDirectory(i))
                continue;
            const zel::String file = folder + "/" + directory.name(i);
            const zel::String name = baseName(directory.name(i));
            if (std::find(seen.begin(), seen.end(), name) != seen.end())
                faults.push_back({file, 1,
                                  zel::String("another file of this folder gives the name \"") +
                                      name + "\" as well: put the lines into one"});
            seen.push_back(name);
            readFile(file, recordOf(name, file));
        }
    }

private:
    Record& recordOf(const zel::String& name, const zel::String& file) {
        const auto known = std::find_if(records.begin(), records.end(),
                                        [&](const Record& record) { return record.name == name; });
        if (known != records.end())
            return *known;
        const auto alike = std::find_if(records.begin(), records.end(), [&](const Record& record) {
            return zel::equalsNoCase(record.name, name);
        });
        if (alike != records.end())
            faults.push_back({file, 1,
                              zel::String("\"") + name + "\" is there already as \"" + alike->name +
                                  "\" and would come twice: write the name in the same way"});
        records.push_back({name, {}, {}});
        return records.back();
    }

    void readFile(const zel::String& file, Record& record) {
        record.files.push_back(file);
        for (const TextLine& line : readText(file, faults)) {
            Entry entry = readEntry(file, line, faults);
            entry.file = static_cast<int32_t>(record.files.size()) - 1;
            record.entries.push_back(std::move(entry));
            if (record.entries.size() == MostLines + 1)
                faults.push_back({file, line.number,
                                  zel::String("\"") + record.name +
                                      "\" has more than 256 lines, in both folders together: none "
                                      "from here on is used"});
        }
    }

    std::vector<Record>& records;
    Faults& faults;
};

} // namespace

std::vector<Record> readRecords(const zel::String& dataFolder, const zel::String& kind,
                                Faults& faults) {
    std::vector<Record> records;
    Reader reader(records, faults);
    reader.readFolder(dataFolder + "/Historical/" + kind);
    reader.readFolder(dataFolder + "/Custom/" + kind);
    return records;
}

} // namespace datacheck
