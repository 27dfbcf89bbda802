#include "app/career/SaveFormat.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "app/career/ValueRepair.h"

namespace {

constexpr char Magic[] = {'W', 'T', 'S', 'V'};
constexpr size_t BytesTogether = 4096; // are copied and then checked while they are in the cache

template <typename Value> void append(std::string& content, const Value& value) {
    content.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename Record>
void appendRecords(std::string& content, const std::vector<Record>& records) {
    append(content, static_cast<uint32_t>(records.size()));
    content.append(reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record));
}

template <size_t Size> void terminate(char (&text)[Size]) {
    if (text[Size - 1] != 0) // reading what was just written would wait for the write
        text[Size - 1] = 0;
}

// Makes the texts of a record from a file end within their arrays, whatever the file says.
void endTexts(Squadron& squadron) {
    terminate(squadron.name);
    terminate(squadron.key);
    terminate(squadron.baseName);
    terminate(squadron.earliestDate);
}
void endTexts(Pilot& pilot) { terminate(pilot.name); }
void endTexts(DataLine& line) { terminate(line.text); }
void endTexts(SquadronFile& file) {
    terminate(file.fileName);
    terminate(file.key);
    terminate(file.lastDate);
}
void endTexts(PilotFile& file) { terminate(file.name); }

// What a record of a sound save always has.
bool isBlank(const Squadron& squadron) { return squadron.baseName[0] == 0 && squadron.nation == 0; }
bool isBlank(const Pilot& pilot) { return pilot.name[0] == 0; }
bool isBlank(const DataLine& line) { return line.text[0] == 0; }
bool isBlank(const SquadronFile& file) { return file.fileName[0] == 0; }
bool isBlank(const PilotFile& file) { return file.name[0] == 0; }

/// The bytes of a save while they are taken apart. After their end everything reads as nothing.
class SaveReader {
public:
    SaveReader(std::string_view content, SaveReading& reading) : rest(content), reading(reading) {}

    /// 0 after the end.
    int32_t number() {
        int32_t value = 0;
        take(&value, sizeof value);
        return value;
    }

    /// Reads as many whole records as the count says and the bytes hold. Each is passed to `check`.
    template <typename Record, typename Check>
    void records(std::vector<Record>& result, const Check& check) {
        const auto count = static_cast<uint32_t>(number());
        const size_t held = std::min<size_t>(count, rest.size() / sizeof(Record));
        result.resize(held); // those of a career before it are overwritten
        int64_t blank = 0;
        constexpr size_t Together = BytesTogether / sizeof(Record);
        static_assert(Together > 0);
        for (size_t done = 0; done < held; done += Together) {
            Record* const first = &result[done];
            Record* const last = first + std::min(Together, held - done);
            take(first, static_cast<size_t>(last - first) * sizeof(Record));
            for (Record* record = first; record != last; ++record) {
                endTexts(*record);
                blank += isBlank(*record) ? 1 : 0;
                check(*record);
            }
        }
        reading.blank += blank;
        reading.missing += static_cast<int64_t>(count) - static_cast<int64_t>(held);
        if (held < count)
            end();
    }

    bool hasEndedEarly() const { return endedEarly; }
    size_t bytesLeft() const { return rest.size(); }

private:
    void take(void* place, size_t size) {
        if (size > rest.size())
            return end();
        std::memcpy(place, rest.data(), size);
        rest.remove_prefix(size);
    }
    void end() {
        rest = {};
        endedEarly = true;
    }

    std::string_view rest;
    SaveReading& reading;
    bool endedEarly = false;
};

/// Whether each of a file's references names a data line or none; asked without a branch, since
/// there are hundreds of thousands of them.
bool areLines(const int32_t (&lines)[LineReferenceCount], size_t size) {
    const auto count = static_cast<uint32_t>(size);
    uint32_t wrong = 0;
    for (const int32_t line : lines)
        wrong |= uint32_t(static_cast<uint32_t>(line) + 1 > count);
    return wrong == 0;
}

/// The beginning of the file, up to the records.
SaveFault readHeader(SaveReader& reader, Database& career, int32_t& version) {
    const int32_t magic = reader.number();
    version = reader.number();
    const bool isSave = !reader.hasEndedEarly() && std::memcmp(&magic, Magic, sizeof Magic) == 0;
    for (int32_t* value : {&career.playerPilot, &career.year, &career.month, &career.day,
                           &career.unusedA, &career.unusedB, &career.careerNumber})
        *value = reader.number();
    if (!isSave)
        return SaveFault::NoSave;
    if (version != SaveVersion)
        return SaveFault::OtherVersion;
    return isDayOfSave(career.calendar()) ? SaveFault::None : SaveFault::NoSave;
}

/// The records and the invitation after them. False if the bytes end before the last pilot: no war
/// can go on without its men.
bool readRecords(SaveReader& reader, Database& career, Soundness& soundness) {
    reader.records(career.squadrons, [](const Squadron&) {});
    uint32_t highestSquadron = 0; // that a pilot names, and his file
    uint32_t highestFile = 0;
    reader.records(career.pilots, [&](const Pilot& pilot) {
        if (!isPlausible(pilot))
            soundness.doubtful.push_back(static_cast<int32_t>(&pilot - career.pilots.data()));
        soundness.living += pilot.alive != 0 ? 1 : 0;
        highestSquadron = std::max(highestSquadron, static_cast<uint32_t>(pilot.squadron));
        highestFile = std::max(highestFile, static_cast<uint32_t>(pilot.pilotFile) + 1);
    });
    if (reader.hasEndedEarly())
        return false;
    const auto check = [&](const auto& record) {
        soundness.files = soundness.files && isPlausible(record);
    };
    const auto checkFile = [&](const auto& file) {
        check(file);
        soundness.lines = soundness.lines && areLines(file.lines, career.dataLines.size());
    };
    reader.records(career.dataLines, check);
    reader.records(career.squadronFiles, checkFile);
    reader.records(career.pilotFiles, checkFile);
    for (int32_t* value : {&career.invitationYear, &career.invitationMonth,
                           &career.invitationSquadron, &career.previousInvitation})
        *value = reader.number();
    soundness.pilots =
        highestSquadron < career.squadrons.size() && highestFile <= career.pilotFiles.size();
    return true;
}

bool hasPlayer(const Database& career) {
    return career.isPilot(career.playerPilot) && !isBlank(career.player()) &&
           career.isSquadron(career.player().squadron) && !isBlank(career.playerSquadron());
}

} // namespace

bool isDayOfSave(const Calendar& day) {
    return day.getYear() >= FirstSaveYear && day.getYear() <= LastSaveYear && day.getMonth() >= 1 &&
           day.getMonth() <= 12 && day.getDay() >= 1 &&
           day.getDay() <= Calendar::daysInMonth(day.getYear(), day.getMonth()) &&
           day.dateNumber() >= FirstDayOfCareer;
}

SaveReading readContent(Database& career, std::string_view content) {
    SaveReading reading;
    SaveReader reader(content, reading);
    reading.fault = readHeader(reader, career, reading.version);
    if (reading.fault == SaveFault::None && !readRecords(reader, career, reading.soundness))
        reading.fault = SaveFault::NoSave;
    reading.endedEarly = reader.hasEndedEarly();
    reading.surplus = static_cast<int32_t>(reader.bytesLeft());
    if (reading.fault != SaveFault::None)
        return reading;
    reading.hasHistory = !reading.endedEarly || !career.pilotFiles.empty();
    reading.hasPlayer = hasPlayer(career);
    reading.isPlayerBlank = career.isPilot(career.playerPilot) && isBlank(career.player());
    return reading;
}

void writeContent(const Database& career, std::string& content) {
    content.clear();
    content.reserve(career.squadrons.size() * sizeof(Squadron) +
                    career.pilots.size() * sizeof(Pilot) +
                    career.dataLines.size() * sizeof(DataLine) +
                    career.squadronFiles.size() * sizeof(SquadronFile) +
                    career.pilotFiles.size() * sizeof(PilotFile) + 128);
    append(content, Magic);
    for (const int32_t value : {SaveVersion, career.playerPilot, career.year, career.month,
                                career.day, career.unusedA, career.unusedB, career.careerNumber})
        append(content, value);
    appendRecords(content, career.squadrons);
    appendRecords(content, career.pilots);
    appendRecords(content, career.dataLines);
    appendRecords(content, career.squadronFiles);
    appendRecords(content, career.pilotFiles);
    for (const int32_t value : {career.invitationYear, career.invitationMonth,
                                career.invitationSquadron, career.previousInvitation})
        append(content, value);
}
