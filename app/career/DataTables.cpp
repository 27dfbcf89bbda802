#include "app/career/DataTables.h"

#include <algorithm>
#include <string>

#include "app/career/DataFolders.h"
#include "app/career/DataTokens.h"
#include "app/career/Database.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"

namespace {

constexpr const char* DeliveredSquadrons = "Data\\Historical\\Squadrons\\";
constexpr const char* CustomSquadrons = "Data\\Custom\\Squadrons\\";
constexpr const char* DeliveredPilots = "Data\\Historical\\Pilots\\";
constexpr const char* CustomPilots = "Data\\Custom\\Pilots\\";
constexpr int32_t KnownNations[] = {France, England, Usa, Germany};

void setName(SquadronFile& file, std::string_view name) {
    zel::copyText(file.fileName, name);
    zel::copyText(file.key, name);
}

void setName(PilotFile& file, std::string_view name) { zel::copyText(file.name, name); }

void logFile(const zel::String& path, const zel::String& fault) {
    zel::log(path + ": " + fault, "Database", zel::LogWarning);
}

/// Reads the files of a kind into records and lines.
template <typename Record> class DataFileReader {
public:
    DataFileReader(std::vector<Record>& records, std::vector<DataLine>& dataLines)
        : records(records), dataLines(dataLines) {}

    /// False if the disk failed while one of them was read.
    bool read(const std::vector<DataFile>& files) {
        for (const DataFile& file : files) {
            if (file.record == MostRecords) {
                logFile(file.path, "is one file too many; it and the rest are left out");
                break;
            }
            if (file.record == records.size())
                addRecord(file);
            readLines(file);
        }
        return !isBroken;
    }

private:
    // A squadron names its file by a number of 16 bits.
    static constexpr size_t MostRecords = 32767;

    void addRecord(const DataFile& file) {
        records.push_back(blank<Record>());
        setName(records.back(), file.name);
        lineCounts.push_back(0);
    }

    void readLines(const DataFile& source) {
        if (source.name.size() > LongestRecordName)
            logFile(source.path,
                    "the name is cut to " + std::to_string(LongestRecordName) + " characters");
        zel::File file(source.path, zel::FileRead);
        if (file.hasFailed())
            logFile(source.path, "can't be read");
        int32_t& lineCount = lineCounts[source.record];
        bool hasLongLine = false;
        while (file.hasLine()) {
            const std::string_view text = file.lineView();
            hasLongLine = hasLongLine || text.size() > LongestDataLine;
            if (lineCount < LineReferenceCount)
                records[source.record].lines[lineCount] = static_cast<int32_t>(dataLines.size());
            else if (lineCount == LineReferenceCount)
                logFile(source.path,
                        zel::String("only the first ") + LineReferenceCount + " lines are used");
            ++lineCount;
            dataLines.push_back(blank<DataLine>());
            zel::copyText(dataLines.back().text, text);
        }
        if (file.fault() == zel::FileFault::DiskError)
            isBroken = true;
        if (hasLongLine)
            logFile(source.path,
                    "lines are cut to " + std::to_string(LongestDataLine) + " characters");
    }

    std::vector<Record>& records;
    std::vector<DataLine>& dataLines;
    std::vector<int32_t> lineCounts; // of each record
    bool isBroken = false;
};
static_assert(sizeof(DataLine::text) == LongestDataLine + 1);
static_assert(sizeof(SquadronFile::key) == LongestRecordName + 1);

bool namesPlane(const std::vector<DataToken>& tokens, std::string_view plane) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const DataToken& token) {
        return token.is("aircraft") && zel::equalsNoCase(token.value, plane);
    });
}

const DataToken* findSkin(const std::vector<DataToken>& tokens) {
    const auto skin = std::find_if(tokens.begin(), tokens.end(),
                                   [](const DataToken& token) { return token.is("skin"); });
    return skin != tokens.end() ? &*skin : nullptr;
}

void logDebug(const char* first, std::string_view second, const char* third = "",
              std::string_view fourth = {}) {
    if (zel::isLogged("Database", zel::LogDebug))
        zel::log(zel::String(first) + second + third + fourth, "Database", zel::LogDebug);
}

/// Calls use(line text) for the lines of every squadron file of that key, until it returns true.
template <typename Use>
bool anyLineOf(const Database& career, std::string_view key, const Use& use) {
    for (const SquadronFile& file : career.squadronFiles) {
        if (zel::arrayText(file.key) != key)
            continue;
        for (const int32_t line : file.lines)
            if (line >= 0 && use(zel::arrayText(career.dataLine(line).text)))
                return true;
    }
    return false;
}

} // namespace

void readDataFiles(Database& career) {
    career.squadronFiles.clear();
    career.pilotFiles.clear();
    career.dataLines.clear();
    const bool hasSquadrons = DataFileReader(career.squadronFiles, career.dataLines)
                                  .read(listDataFiles(DeliveredSquadrons, CustomSquadrons));
    const bool hasPilots = DataFileReader(career.pilotFiles, career.dataLines)
                               .read(listDataFiles(DeliveredPilots, CustomPilots));
    career.hasBrokenHistory = !hasSquadrons || !hasPilots;

    for (const SquadronFile& file : career.squadronFiles) {
        const int32_t nation = zel::toInt(zel::arrayText(file.key).substr(0, 3));
        if (std::find(std::begin(KnownNations), std::end(KnownNations), nation) ==
            std::end(KnownNations))
            zel::log(zel::String("Squadron file ") + zel::arrayText(file.key) +
                         " belongs to no nation of the war",
                     "Database", zel::LogWarning);
    }
}

bool hasAircraft(const Database& career, const zel::String& key, const zel::String& plane) {
    if (key.empty())
        return false;
    logDebug("Scanning for aircraft ", plane, " at hsquadron ", key);
    std::vector<DataToken> tokens;
    return anyLineOf(career, key, [&](std::string_view line) {
        logDebug("LINE: ", line);
        splitDataLine(line, tokens);
        for (const DataToken& token : tokens) {
            if (!token.is("aircraft"))
                continue;
            logDebug("Checking ", token.value, " and ", plane);
            if (zel::equalsNoCase(token.value, plane)) {
                logDebug("FOUND!", {});
                return true;
            }
        }
        return false;
    });
}

zel::String squadronSkin(const Database& career, const zel::String& key, const zel::String& plane) {
    zel::String skin;
    logDebug("Scanning for aircraft ", plane, " at hsquadron ", key);
    std::vector<DataToken> tokens;
    anyLineOf(career, key, [&](std::string_view line) {
        splitDataLine(line, tokens);
        if (!namesPlane(tokens, plane))
            return false;
        logDebug("Found aircraft ", {});
        const DataToken* found = findSkin(tokens);
        if (found == nullptr)
            return false;
        skin = found->value;
        logDebug("Returning skin: ", skin);
        return true;
    });
    return skin;
}

zel::String pilotSkin(const Database& career, int32_t pilotFile, const zel::String& plane) {
    if (!career.isPilotFile(pilotFile))
        return {};
    std::vector<DataToken> tokens;
    for (const int32_t line : career.pilotFile(pilotFile).lines) {
        if (line < 0)
            continue;
        splitDataLine(zel::arrayText(career.dataLine(line).text), tokens);
        const DataToken* skin = findSkin(tokens);
        if (skin != nullptr && namesPlane(tokens, plane))
            return zel::String(skin->value);
    }
    return {};
}
