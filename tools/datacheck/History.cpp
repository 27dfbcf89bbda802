#include "tools/datacheck/History.h"

#include <algorithm>
#include <string>

#include "app/career/DataFolders.h"
#include "app/career/Records.h"

namespace datacheck {

namespace {

struct HistoryKey {
    std::string_view name;
    std::string HistoryLine::*value;
};

// All keys of the delivered files.
constexpr HistoryKey HistoryKeys[] = {
    {"date", &HistoryLine::date},         {"until", &HistoryLine::until},
    {"action", &HistoryLine::action},     {"aircraft", &HistoryLine::aircraft},
    {"skin", &HistoryLine::skin},         {"unit", &HistoryLine::unit},
    {"acelevel", &HistoryLine::aceLevel}, {"acepotential", &HistoryLine::acePotential},
};

std::string knownKeys() {
    std::string text;
    for (const HistoryKey& key : HistoryKeys)
        text += (text.empty() ? "" : " ") + std::string(key.name);
    return text;
}

/// The position of a line's text, for findings.
struct LinePlace {
    const zel::String& file;
    int32_t number;
    Findings& findings;

    void report(const zel::String& message, const zel::String& suggestion = {}) const {
        findings.emplace_back(file, number, message, suggestion);
    }
};

/// Puts the value of one token into the line.
void readToken(std::string_view token, HistoryLine& line, const LinePlace& place) {
    const zel::String quoted = zel::String("\"") + token + "\"";
    const size_t sign = token.find('=');
    if (sign == token.npos)
        return place.report(quoted + " is not read",
                            "write key=value; there are no comments, and a value has no blanks");
    const zel::String name = zel::String(token.substr(0, sign)).toLower();
    const std::string_view value = token.substr(sign + 1);
    const auto* const key =
        std::find_if(std::begin(HistoryKeys), std::end(HistoryKeys),
                     [&](const HistoryKey& known) { return name == known.name; });
    if (key == std::end(HistoryKeys))
        return place.report(quoted + " has an unknown key", "the keys are " + knownKeys());
    if (value.empty())
        return place.report(quoted + " has no value", "write one or remove the token");
    if (value.find('=') != value.npos)
        return place.report(quoted + " has a second \"=\"", "what follows it is not read");
    if (!(line.*key->value).empty())
        return place.report(name + "= comes twice", "make two lines of it");
    line.*key->value = value;
}

void checkBlanks(std::string_view text, const LinePlace& place) {
    if (text.find_first_not_of(' ') == text.npos)
        place.report("a line of blanks", "remove it");
    else if (text.front() == ' ' || text.back() == ' ')
        place.report("a blank at the start or end of the line", "remove it");
    else if (text.find("  ") != text.npos)
        place.report("two blanks in a row", "leave one");
}

void checkDates(const HistoryLine& line, const LinePlace& place) {
    const auto check = [&](const char* key, const std::string& value) {
        if (!value.empty() && !isWarDate(value))
            place.report(zel::String(key) + "=" + value + " is not a date of the war",
                         "write year, month and day as 19170401");
    };
    check("date", line.date);
    check("until", line.until);
    if (isWarDate(line.date) && isWarDate(line.until) && line.until < line.date)
        place.report("until=" + line.until + " is before date=" + line.date, "exchange them");
}

HistoryLine readLine(const TextLine& text, const LinePlace& place) {
    HistoryLine line{};
    line.number = text.number;
    const std::string_view view = text.text.view();
    if (view.size() > LongestDataLine)
        place.report("the line has " + std::to_string(view.size()) + " characters, of which " +
                         std::to_string(LongestDataLine) + " are read",
                     "shorten it");
    checkBlanks(view, place);
    std::vector<zel::String> tokens;
    text.text.split(" ", tokens);
    for (const zel::String& token : tokens) {
        const std::string_view trimmed = zel::trimmed(token.view(), '\t');
        if (!trimmed.empty())
            readToken(trimmed, line, place);
    }
    checkDates(line, place);
    return line;
}

void readFile(const DataFile& file, HistoryRecord& record, Findings& findings) {
    record.files.push_back(file.path);
    for (const TextLine& text : readText(file.path, findings)) {
        record.lines.push_back(readLine(text, {file.path, text.number, findings}));
        record.lines.back().file = record.files.size() - 1;
        if (record.lines.size() == LineReferenceCount + 1)
            findings.emplace_back(file.path, text.number,
                                  "\"" + file.name + "\" has more than " +
                                      std::to_string(LineReferenceCount) +
                                      " lines, in both folders together",
                                  "this one and the following ones are not used");
    }
}

/// Reports a file with the same name as another one in its folder, or with a name that differs from
/// another record's only in case. records: those of the files before it.
void checkHistoricName(const DataFile& file, const std::vector<DataFile>& files,
                       const std::vector<HistoryRecord>& records, Findings& findings) {
    const auto isTwin = [&](const DataFile& other) {
        return other.isCustom == file.isCustom && other.name == file.name;
    };
    const auto twin = std::find_if(files.begin(), files.end(), isTwin);
    if (&*twin < &file)
        findings.emplace_back(file.path, 0,
                              "\"" + file.name + "\" is the name of another file in this folder",
                              "put the lines into one file");
    if (file.record < records.size())
        return;
    const auto alike =
        std::find_if(records.begin(), records.end(), [&](const HistoryRecord& record) {
            return zel::equalsNoCase(record.name, file.name);
        });
    if (alike != records.end())
        findings.emplace_back(file.path, 0,
                              zel::String("\"") + file.name + "\" differs from \"" + alike->name +
                                  "\" in capitals only and would come twice",
                              "write the name in the same way");
}

} // namespace

std::vector<HistoryRecord> readHistory(const zel::String& dataFolder, const zel::String& kind,
                                       Findings& findings) {
    const std::vector<DataFile> files = listDataFiles(dataFolder + "/Historical/" + kind + "/",
                                                      dataFolder + "/Custom/" + kind + "/");
    std::vector<HistoryRecord> records;
    for (const DataFile& file : files) {
        checkHistoricName(file, files, records, findings);
        if (file.record == records.size())
            records.push_back({zel::String(file.name), {}, {}});
        readFile(file, records[file.record], findings);
    }
    return records;
}

} // namespace datacheck
