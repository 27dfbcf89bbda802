#include "app/career/SaveFile.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/SavePages.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"

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

/// A save file while it is read. After its end everything reads as nothing.
class SaveReader {
public:
    explicit SaveReader(zel::File& file) : file(file), left(file.fileSize()) {}

    /// 0 when the file has ended.
    int32_t number() {
        int32_t value = 0;
        take(&value, sizeof value);
        return value;
    }

    /// As many whole records as the count says and the file holds. Each is passed to `check`.
    template <typename Record, typename Check>
    void records(std::vector<Record>& result, const Check& check) {
        const auto count = static_cast<uint32_t>(number());
        const auto held = std::min<size_t>(count, static_cast<size_t>(left) / sizeof(Record));
        result.resize(held); // those of a career before it are overwritten
        // In pieces that are checked while they are in the cache.
        constexpr size_t PieceLength = 131072 / sizeof(Record);
        for (size_t done = 0; done < held;) {
            const size_t end = std::min(done + PieceLength, held);
            take(&result[done], static_cast<int32_t>((end - done) * sizeof(Record)));
            if (endedEarly)
                return result.resize(done);
            for (; done < end; ++done) {
                endTexts(result[done]);
                check(result[done]);
            }
        }
        if (held < count)
            end();
    }

    template <typename Record> void records(std::vector<Record>& result) {
        records(result, [](const Record&) {});
    }

    bool hasEndedEarly() const { return endedEarly; }
    int32_t bytesLeft() const { return left; }

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

/// What the file begins with, up to the records. Null, or why they can't be used.
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

/// The records and the invitation after them. False if it ends before the last pilot: no war can
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
    const auto checkLines = [&](const auto& record) {
        soundness.lines = soundness.lines && areLines(record.lines, career.dataLines.size());
    };
    reader.records(career.squadronFiles, checkLines);
    reader.records(career.pilotFiles, checkLines);
    for (int32_t* value : {&career.invitationYear, &career.invitationMonth,
                           &career.invitationSquadron, &career.previousInvitation})
        *value = reader.number();
    soundness.pilots =
        highestSquadron < career.squadrons.size() && highestFile <= career.pilotFiles.size();
    return true;
}

std::string saveContent(const Database& career) {
    std::string content;
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
    return content;
}

/// Replaces the career by the file's, see readSave.
bool readFile(Database& career, const zel::String& name) {
    createSaveFolder();
    career.repairs = {};
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    SaveReader reader(file);
    Soundness soundness;
    const char* fault = readHeader(reader, career);
    if (fault == nullptr && !readRecords(reader, career, soundness))
        fault = NoSaveGame;
    if (fault == nullptr && reader.hasEndedEarly()) {
        zel::log("File " + name + " ends early; what it holds is used", "Database",
                 zel::LogWarning);
        career.invitationSquadron = career.previousInvitation = NoInvitation;
        career.repairs.endedEarly = true;
    }
    if (fault == nullptr && !repairCareer(career, soundness, career.repairs))
        fault = NoSaveGame;
    if (fault == nullptr && reader.bytesLeft() > 0) {
        career.repairs.surplus = reader.bytesLeft();
        zel::log("File " + name + " has " + reader.bytesLeft() + " bytes after its end; left out",
                 "Database", zel::LogWarning);
    }
    career.isUnsaved = false;
    if (fault == nullptr)
        return true;
    clearRecords(career);
    if (career.careerNumber == 0) // or every career to come would have this one
        career.careerNumber = career.random.getInt(0, LastCareerNumber);
    zel::log("File " + name + fault, "Database", zel::LogWarning);
    return false;
}

} // namespace

bool isSaved(const Database& career, const zel::String& name) {
    std::string saved;
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    return !career.hasCareer() || (file.readWhole(saved) && saved == saveContent(career));
}

bool writeSave(Database& career, const zel::String& name) {
    const zel::String path = zel::getUserDirectory() + name;
    if (!career.hasCareer()) {
        zel::log("There is no career to store in " + path, "Database", zel::LogError);
        return false;
    }
    createSaveFolder();
    zel::log("storeFile" + path, "Database", zel::LogInfo);
    const std::string content = saveContent(career);
    if (career.observer != nullptr)
        career.observer->onSaving(career, content);

    // A damaged file must not replace the last whole one as ".bak".
    const bool replacesDamaged = !career.damagedSave.empty() && career.damagedSave == path;
    if (!replacesDamaged && !keepBackupAsPage(path))
        return false;
    const zel::FileFault fault =
        zel::writeFileWhole(path, content, path + (replacesDamaged ? DamagedEnding : BackupEnding));
    const bool isWritten = fault == zel::FileFault::None;
    if (isWritten && replacesDamaged)
        career.damagedSave = "";
    if (isWritten)
        career.isUnsaved = false;
    if (isWritten && career.observer != nullptr)
        career.observer->onSaved(career);
    if (!isWritten)
        zel::log("The career can't be written to " + path + ": " + zel::faultText(fault) +
                     "; the file before it is kept",
                 "Database", zel::LogError);
    return isWritten;
}

bool readSave(Database& career, const zel::String& name) {
    const bool isRead = readFile(career, name);
    const bool isDamaged = !isRead || career.repairs.any();
    career.damagedSave = isDamaged ? zel::getUserDirectory() + name : zel::String();
    if (isRead && career.observer != nullptr)
        career.observer->onCareerLoaded(career, zel::getUserDirectory() + name);
    return isRead;
}

bool readBackup(Database& career, const zel::String& name) {
    const bool isRead = readFile(career, name + BackupEnding);
    career.damagedSave = zel::getUserDirectory() + name;
    if (isRead && career.observer != nullptr)
        career.observer->onCareerLoaded(career, zel::getUserDirectory() + name + BackupEnding);
    return isRead;
}
