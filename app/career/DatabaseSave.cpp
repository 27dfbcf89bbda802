#include <algorithm>
#include <cstring>
#include <string>

#include "app/career/Database.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/UserDirectory.h"

namespace {

constexpr char Magic[] = {'W', 'T', 'S', 'V'};
constexpr int32_t SaveVersion = 2;
constexpr int32_t FirstDay = 19151201; // of a career, as Calendar::dateNumber()

constexpr const char* NoSaveGame = " is no save game";

void createSaveFolder() { zel::Directory::create(zel::getUserDirectory() + "Saves"); }

template <typename Value> void append(std::string& content, const Value& value) {
    content.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename Record>
void appendRecords(std::string& content, const std::vector<Record>& records) {
    append(content, static_cast<uint32_t>(records.size()));
    content.append(reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record));
}

template <size_t Size> void terminate(char (&text)[Size]) { text[Size - 1] = 0; }

// The texts of a record from a file end within their arrays, whatever the file says.
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

/// A save file while it is read. Behind its end everything reads as nothing.
class SaveReader {
public:
    explicit SaveReader(zel::File& file) : file(file), left(file.fileSize()) {}

    /// 0 when the file has ended.
    int32_t number() {
        int32_t value = 0;
        take(&value, sizeof value);
        return value;
    }

    /// As many whole records as the count says and the file holds. Each is shown to `look`.
    template <typename Record, typename Look>
    void records(std::vector<Record>& result, const Look& look) {
        const auto count = static_cast<uint32_t>(number());
        const auto held = std::min<size_t>(count, static_cast<size_t>(left) / sizeof(Record));
        result.resize(held); // those of a career before it are overwritten
        // By pieces that are looked at while they are in the cache.
        constexpr size_t PieceLength = 131072 / sizeof(Record);
        for (size_t done = 0; done < held;) {
            const size_t end = std::min(done + PieceLength, held);
            take(&result[done], static_cast<int32_t>((end - done) * sizeof(Record)));
            if (endedEarly)
                return result.resize(done);
            for (; done < end; ++done) {
                endTexts(result[done]);
                look(result[done]);
            }
        }
        if (held < count)
            end();
    }

    template <typename Record> void records(std::vector<Record>& result) {
        records(result, [](const Record&) {});
    }

    bool hasEndedEarly() const { return endedEarly; }

private:
    void take(void* place, int32_t size) {
        if (size > left || (size > 0 && !file.read(place, size)))
            end();
        else
            left -= size;
    }
    void end() {
        left = 0;
        endedEarly = true;
    }

    zel::File& file;
    int32_t left; // bytes
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

/// From the first day of a career to a little past the end of the war.
bool couldBeOfThisWar(const Database& career) {
    return career.year >= FirstSaveYear && career.year <= LastSaveYear && career.month >= 1 &&
           career.month <= 12 && career.day >= 1 &&
           career.day <= Calendar::daysInMonth(career.year, career.month) &&
           career.calendar().dateNumber() >= FirstDay;
}

void clearRecords(Database& career) {
    career.squadrons.clear();
    career.pilots.clear();
    career.dataLines.clear();
    career.squadronFiles.clear();
    career.pilotFiles.clear();
}

/// What stands in front of the records. Null, or why they can't be used.
const char* readHeader(SaveReader& reader, Database& career) {
    const int32_t magic = reader.number();
    const int32_t version = reader.number();
    const bool isSave = !reader.hasEndedEarly() && std::memcmp(&magic, Magic, sizeof Magic) == 0;
    for (int32_t* value : {&career.playerPilot, &career.year, &career.month, &career.day,
                           &career.unusedA, &career.unusedB, &career.careerNumber})
        *value = reader.number();
    if (!isSave)
        return NoSaveGame;
    if (version != SaveVersion)
        return " requires a newer version";
    return couldBeOfThisWar(career) ? nullptr : NoSaveGame;
}

/// The records and the invitation behind them. False if it ends before the last pilot: no war can
/// go on without its men.
bool readRecords(SaveReader& reader, Database& career, Soundness& soundness) {
    reader.records(career.squadrons);
    uint32_t highestSquadron = 0; // that a pilot names, and his file
    uint32_t highestFile = 0;
    reader.records(career.pilots, [&](const Pilot& pilot) {
        highestSquadron = std::max(highestSquadron, static_cast<uint32_t>(pilot.squadron));
        highestFile = std::max(highestFile, static_cast<uint32_t>(pilot.pilotFile) + 1);
    });
    if (reader.hasEndedEarly())
        return false;
    reader.records(career.dataLines);
    const auto lookAtLines = [&](const auto& record) {
        soundness.lines = soundness.lines && areLines(record.lines, career.dataLines.size());
    };
    reader.records(career.squadronFiles, lookAtLines);
    reader.records(career.pilotFiles, lookAtLines);
    for (int32_t* value : {&career.invitationYear, &career.invitationMonth,
                           &career.invitationSquadron, &career.previousInvitation})
        *value = reader.number();
    soundness.pilots =
        highestSquadron < career.squadrons.size() && highestFile <= career.pilotFiles.size();
    return true;
}

} // namespace

bool Database::storeFile(const zel::String& name) {
    static_cast<void>(writeSave(name));
    return true;
}

std::string Database::saveContent() const {
    std::string content;
    content.reserve(squadrons.size() * sizeof(Squadron) + pilots.size() * sizeof(Pilot) +
                    dataLines.size() * sizeof(DataLine) +
                    squadronFiles.size() * sizeof(SquadronFile) +
                    pilotFiles.size() * sizeof(PilotFile) + 128);
    append(content, Magic);
    for (const int32_t value :
         {SaveVersion, playerPilot, year, month, day, unusedA, unusedB, careerNumber})
        append(content, value);
    appendRecords(content, squadrons);
    appendRecords(content, pilots);
    appendRecords(content, dataLines);
    appendRecords(content, squadronFiles);
    appendRecords(content, pilotFiles);
    for (const int32_t value :
         {invitationYear, invitationMonth, invitationSquadron, previousInvitation})
        append(content, value);
    return content;
}

bool Database::isSaved(const zel::String& name) const {
    std::string saved;
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    return !hasCareer() || (file.readWhole(saved) && saved == saveContent());
}

bool Database::writeSave(const zel::String& name) {
    const zel::String path = zel::getUserDirectory() + name;
    if (!hasCareer()) {
        zel::log("There is no career to store in " + path, "Database", zel::LogError);
        return false;
    }
    createSaveFolder();
    zel::log("storeFile" + path, "Database", zel::LogInfo);
    const std::string content = saveContent();

    // A damaged file doesn't push the last whole one out of its place as ".bak".
    const bool replacesDamaged = !damagedFile.empty() && damagedFile == path;
    const bool written =
        zel::replaceFileSafely(path, content, replacesDamaged ? DamagedEnding : BackupEnding);
    if (written && replacesDamaged)
        damagedFile = "";
    if (!written)
        zel::log("The career can't be written to " + path + "; the file before it is kept",
                 "Database", zel::LogError);
    return written;
}

bool Database::loadFile(const zel::String& name) {
    const bool isLoaded = readSave(name);
    damagedFile = isLoaded && !repairs.any() ? zel::String() : zel::getUserDirectory() + name;
    return isLoaded;
}

bool Database::loadBackup(const zel::String& name) {
    const bool isLoaded = readSave(name + BackupEnding);
    damagedFile = zel::getUserDirectory() + name;
    return isLoaded;
}

bool Database::readSave(const zel::String& name) {
    createSaveFolder();
    repairs = {};
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    SaveReader reader(file);
    Soundness soundness;
    const char* fault = readHeader(reader, *this);
    if (fault == nullptr && !readRecords(reader, *this, soundness))
        fault = NoSaveGame;
    if (fault == nullptr && reader.hasEndedEarly()) {
        zel::log("File " + name + " ends early; what it holds is used", "Database",
                 zel::LogWarning);
        invitationSquadron = previousInvitation = NoInvitation;
        repairs.endedEarly = true;
    }
    if (fault == nullptr && !repairCareer(*this, soundness, repairs))
        fault = NoSaveGame;
    if (fault == nullptr)
        return true;
    clearRecords(*this);
    if (careerNumber == 0) // or every career to come would have this one
        careerNumber = random.getInt(0, LastCareerNumber);
    zel::log("File " + name + fault, "Database", zel::LogWarning);
    return false;
}
