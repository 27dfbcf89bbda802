#include "app/career/SaveFile.h"

#include <cstring>
#include <string>

#include "app/career/CareerLock.h"
#include "app/career/CareerObserver.h"
#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/career/SaveFormat.h"
#include "app/career/SavePages.h"
#include "app/career/UnrecordedSaves.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"

namespace {

void createSaveFolder() { zel::Directory::create(zel::getUserDirectory() + CurrentFolder); }

void logSave(const zel::String& message, int32_t level = zel::LogWarning) {
    zel::log(message, "Database", level);
}

/// Buffers for reading and writing a save. They are kept: allocating megabytes for each save costs
/// more than reading them.
std::string& roomToRead() {
    static std::string content;
    return content;
}
std::string& roomToWrite() {
    static std::string content;
    return content;
}

/// What is known of a save from the record of the war, or else from its page or the note beside it.
/// `number` is the career's; where it alone differs, it becomes the right one.
SaveMatch match(const Database& career, const CheckedBytes& content, int32_t& number) {
    if (career.observer == nullptr || content.bytes().size() < CareerNumberOffset + sizeof number)
        return SaveMatch::Unknown;
    std::memcpy(&number, &content.bytes()[CareerNumberOffset], sizeof number);
    const SaveMatch recorded = career.observer->matchSave(career, content, number);
    const bool isKnown = recorded == SaveMatch::Changed &&
                         isKnownWhole(zel::getUserDirectory() + SaveFileName, content);
    return isKnown ? SaveMatch::Whole : recorded;
}
SaveMatch match(const Database& career, const CheckedBytes& content) {
    int32_t number = 0;
    return match(career, content, number);
}

/// Whether a file is a save to go back to: as it was saved or, if that is unknown, with all
/// its parts. `known` is what match() says.
bool isWholeSave(const Database& career, const zel::String& path, SaveMatch& known) {
    std::string& content = roomToRead();
    zel::FileFault fault = zel::readFileWhole(path, content);
    if (fault == zel::FileFault::DiskError) // perhaps not again
        fault = zel::readFileWhole(path, content);
    if (fault != zel::FileFault::None)
        return false;
    known = match(career, content);
    return known == SaveMatch::Unknown ? saveFault(content).empty() : known == SaveMatch::Whole;
}
bool isWholeSave(const Database& career, const zel::String& path) {
    SaveMatch known{};
    return isWholeSave(career, path, known);
}

void clearRecords(Database& career) {
    career.squadrons.clear();
    career.pilots.clear();
    career.dataLines.clear();
    career.squadronFiles.clear();
    career.pilotFiles.clear();
}

/// Whether so much of a save is lost that no career can go on from the rest. One that is known to
/// have been changed may lose a record in a hundred. In any other only blank records count, which a
/// sound save doesn't have.
bool isLost(const Database& career, const SaveReading& reading, SaveMatch known) {
    const int64_t records = static_cast<int64_t>(
        career.squadrons.size() + career.pilots.size() + career.dataLines.size() +
        career.squadronFiles.size() + career.pilotFiles.size());
    if (known != SaveMatch::Changed)
        return reading.isPlayerBlank || reading.blank * 10 > records;
    const int64_t lost = reading.blank + reading.missing + career.repairs.faults() +
                         reading.surplus / static_cast<int64_t>(sizeof(Pilot));
    return !reading.hasPlayer || career.repairs.playerMoved || !reading.hasHistory ||
           lost * 100 > records;
}

void logFault(const zel::String& name, const SaveCheck& check) {
    switch (check.fault) {
    case SaveFault::OtherVersion:
        return logSave("File " + name + " requires a newer version");
    case SaveFault::Missing:
    case SaveFault::NoSave:
        return logSave("File " + name + " is no save game");
    default:
        return logSave("File " + name + ": " + saveFaultText(check));
    }
}

/// Takes a file's bytes apart and fixes what is damaged.
SaveFault takeContent(Database& career, const zel::String& name, std::string_view content) {
    const SaveReading reading = readContent(career, content);
    career.saveCheck.version = reading.version;
    if (reading.fault != SaveFault::None)
        return reading.fault;
    if (reading.endedEarly) {
        logSave("File " + name + " ends early; what it holds is used");
        career.invitationSquadron = career.previousInvitation = NoInvitation;
        career.repairs.endedEarly = true;
    }
    if (!repairCareer(career, reading.soundness, career.repairs))
        return career.saveCheck.match == SaveMatch::Changed ? SaveFault::Lost : SaveFault::NoSave;
    if (reading.surplus > 0) {
        logSave("File " + name + " has " + reading.surplus + " bytes after its end; left out");
        career.repairs.surplus = reading.surplus;
    }
    if (isLost(career, reading, career.saveCheck.match))
        return SaveFault::Lost;
    if (career.saveCheck.match == SaveMatch::Changed) {
        logSave("File " + name + " was changed or damaged outside of Wingtally");
        career.repairs.changed = true;
    }
    return SaveFault::None;
}

/// Replaces the career by the file's, see readSave.
bool readFile(Database& career, const zel::String& name) {
    SaveCheck& check = career.saveCheck;
    career.isUnsaved = false;
    std::string& content = roomToRead();
    check.reason = zel::readFileWhole(zel::getUserDirectory() + name, content);
    if (check.reason == zel::FileFault::None) {
        const CheckedBytes read(content);
        if (career.observer != nullptr)
            check.checksum = read.checksum();
        int32_t number = 0;
        check.match = match(career, read, number);
        if (check.match == SaveMatch::Changed)
            std::memcpy(&content[CareerNumberOffset], &number, sizeof number);
        check.fault = takeContent(career, name, content);
    } else {
        readContent(career, {}); // leaves no date and no number of another career
        check.fault =
            check.reason == zel::FileFault::Missing ? SaveFault::Missing : SaveFault::Unread;
    }
    if (check.fault == SaveFault::None)
        return true;
    clearRecords(career);
    if (career.careerNumber == 0) // or every career to come would have this one
        career.careerNumber = career.random.getInt(0, LastCareerNumber);
    logFault(name, check);
    return false;
}

bool isMissing(const zel::String& path) {
    return !zel::system::fileStatus(path).exists && !zel::system::isDirectory(path) &&
           zel::system::lastFault() == zel::FileFault::Missing;
}

/// Where no file has the save's name, as after a program that was killed in the middle of a save:
/// gives that name to a whole draft, or finds the save before it. Returns the name of the file to
/// read, in the user's folder.
zel::String findSave(Database& career, const zel::String& name) {
    const zel::String path = zel::getUserDirectory() + name;
    if (!isMissing(path))
        return name;
    for (const zel::String& draft : zel::leftDrafts(path)) {
        if (career.isReadOnly || !isWholeSave(career, draft) ||
            !zel::system::replaceFile(draft, zel::system::linkTarget(path)))
            continue;
        zel::system::syncFolder(zel::getUserDirectory() + CurrentFolder);
        logSave("File " + name + " was missing; " + draft + " is whole and takes its place");
        career.saveCheck.source = SaveSource::Draft;
        return name;
    }
    if (!isWholeSave(career, path + BackupEnding))
        return name;
    logSave("File " + name + " is missing; the one saved before it is used");
    career.saveCheck.source = SaveSource::Backup;
    return name + BackupEnding;
}

/// The newest whole save before the one of that name, in the user's folder: its backup, or the
/// newest of the pages. Empty if there is none. What was read last doesn't count if it had to be
/// repaired, or was read in place of a file that was missing.
zel::String earlierSave(const Database& career, const zel::String& name) {
    const zel::String folder = zel::getUserDirectory();
    const zel::String tried = career.repairs.any() ? career.saveCheck.checksum : zel::String();
    const auto recorded = [&](const CheckedBytes& content) { return match(career, content); };
    const zel::String page = newestWholePage(folder + name, recorded, tried);
    return page.view().substr(page.empty() ? 0 : static_cast<size_t>(folder.length()));
}

void beginReading(Database& career) {
    createSaveFolder();
    career.isReadOnly = career.lock != nullptr && !career.lock->take();
    career.repairs = {};
    career.saveCheck = {};
}

bool endReading(Database& career, bool isRead) {
    career.repairs.recovered = isRead && career.saveCheck.source != SaveSource::Named;
    if (isRead && career.observer != nullptr)
        career.observer->onCareerLoaded(career);
    return isRead;
}

/// Whether the file that a save replaces must not become the one to go back to. `known` receives
/// match()'s result for a file that may be kept.
bool replacesDamaged(const Database& career, const zel::String& path, SaveMatch& known) {
    return (!career.damagedSave.empty() && career.damagedSave == path) ||
           (zel::system::fileStatus(path).exists && !isWholeSave(career, path, known));
}

/// A save that is about to become ".bak" and is from before the record, or of a course of the war
/// that the record is about to leave: the record will not have it, and would call it changed.
void noteUnknown(const Database& career, const zel::String& path) {
    std::string& content = roomToRead();
    if (career.observer != nullptr && zel::system::fileStatus(path).exists &&
        zel::readFileWhole(path, content) == zel::FileFault::None && !isUnrecorded(path, content))
        noteUnrecorded(path, content);
}

} // namespace

bool isSaved(const Database& career, const zel::String& name) {
    if (!career.hasCareer())
        return true;
    std::string& saved = roomToRead();
    std::string& content = roomToWrite();
    writeContent(career, content);
    if (career.isReadOnly && career.saveCheck.checksum == checksumOf(content))
        return true;
    return zel::readFileWhole(zel::getUserDirectory() + name, saved) == zel::FileFault::None &&
           saved == content;
}

zel::String freeDamagedPath(const zel::String& name) {
    const zel::String path = zel::getUserDirectory() + name + DamagedEnding;
    zel::String numbered = path;
    for (int32_t number = 2; number <= LastDamaged && zel::system::fileStatus(numbered).exists;
         ++number)
        numbered = path + "-" + number;
    return numbered;
}

bool writeSave(Database& career, const zel::String& name) {
    const zel::String path = zel::getUserDirectory() + name;
    if (!career.hasCareer()) {
        logSave("There is no career to store in " + path, zel::LogError);
        return false;
    }
    if (career.lock != nullptr && !career.isReadOnly)
        career.isReadOnly = !career.lock->take(); // its file may have been removed
    if (career.isReadOnly) {
        career.writeFault = zel::FileFault::Held;
        logSave("The career can't be written to " + path + ": " + holderText(*career.lock),
                zel::LogError);
        return false;
    }
    createSaveFolder();
    logSave("storeFile" + path, zel::LogInfo);
    std::string& content = roomToWrite();
    writeContent(career, content);
    SaveMatch replaced = SaveMatch::Unknown;
    const bool isDamaged = replacesDamaged(career, path, replaced);
    zel::WholeFile file(path);
    bool isWritten = file.write(content);
    const auto recorded = [&](const CheckedBytes& bytes) { return match(career, bytes); };
    if (isWritten && !isDamaged && !keepBackupAsPage(path, recorded)) {
        career.writeFault = zel::system::lastFault();
        return false;
    }
    if (isWritten && !isDamaged &&
        (replaced == SaveMatch::Unknown || career.saveCheck.replacesUnread))
        noteUnknown(career, path);
    if (isWritten && career.observer != nullptr && !career.observer->onSaving(career, content)) {
        career.writeFault = noteUnrecorded(path, content);
        if (career.writeFault != zel::FileFault::None)
            return false; // the next load would call it changed
    }
    isWritten = isWritten && file.commit(isDamaged ? freeDamagedPath(name) : path + BackupEnding);
    career.writeFault = file.fault();
    if (isWritten) {
        career.damagedSave = "";
        career.saveCheck.replacesUnread = false;
        career.isUnsaved = false;
        if (career.observer != nullptr)
            career.observer->onSaved(career);
    }
    if (!isWritten) {
        logSave("The career can't be written to " + path + ": " + zel::faultText(file.fault()) +
                    "; the file before it is kept",
                zel::LogError);
        // If only its folder could not be synced, the save is there, and no other career is in its
        // way.
        career.isUnsaved = career.isUnsaved && !isSaved(career, name);
    }
    return isWritten;
}

bool readSave(Database& career, const zel::String& name) {
    beginReading(career);
    const zel::String found = findSave(career, name);
    const bool isRead = readFile(career, found);
    // One that can't be read now may be whole: the next save looks at it.
    const bool isDamaged =
        career.saveCheck.fault != SaveFault::Unread && (!isRead || career.repairs.any());
    career.damagedSave = isDamaged ? zel::getUserDirectory() + name : zel::String();
    return endReading(career, isRead);
}

bool hasEarlierSave(const Database& career, const zel::String& name) {
    return !earlierSave(career, name).empty();
}

bool readBackup(Database& career, const zel::String& name) {
    const zel::String earlier = earlierSave(career, name);
    // A draft that has taken the name of a missing save is whole, and becomes the one before.
    const bool isDamaged = !career.damagedSave.empty();
    const bool isUnread =
        career.saveCheck.replacesUnread || career.saveCheck.fault == SaveFault::Unread;
    beginReading(career);
    const bool isRead = readFile(career, earlier.empty() ? name + BackupEnding : earlier);
    const zel::String path = zel::getUserDirectory() + name;
    career.saveCheck.replacesUnread = isUnread && !isDamaged;
    if (isRead && !isDamaged && !isUnread && !career.isReadOnly)
        noteUnknown(career, path);
    career.damagedSave = isDamaged ? path : zel::String();
    return endReading(career, isRead);
}
