#include "app/record/Shelf.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "app/career/CareerLock.h"
#include "app/career/Database.h"
#include "app/career/SaveFormat.h"
#include "app/career/Wording.h"
#include "app/record/CareerRecord.h"
#include "app/record/KeptRecords.h"
#include "app/record/RecordSearch.h"
#include "app/record/ShelfFolders.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/WholeFile.h"

namespace {

zel::String currentFolder() { return userPath(CurrentFolder); }
zel::String incomingFolder() { return userPath(IncomingFolder); }

ShelvedCareer careerIn(const zel::String& folder, int32_t number) {
    ShelvedCareer career;
    career.number = number;
    career.folder = folder;
    career.summary = summaryOf(saveIn(folder), keptClosing(folder));
    return career;
}

/// What the record in a career's folder says about its saves.
RecordedMatch recordedIn(const zel::String& folder) {
    return [record = recordIn(folder)](const CheckedBytes& content) {
        int32_t number = 0;
        std::memcpy(&number, &content.bytes()[CareerNumberOffset], sizeof number);
        return matchRecords(record, nullptr, true, content, number);
    };
}

/// Whether a damaged save has a whole page to go back to. Only the current career can go back.
bool hasWholePage(const zel::String& folder) {
    return !newestWholePage(saveIn(folder), recordedIn(folder)).empty();
}

Problem heldBy(const CareerLock& lock) {
    return Problem(wording::CareerHeld, {zel::String(std::to_string(lock.holder()))});
}

/// Under what name a career goes to the shelf.
zel::String pilotIn(const zel::String& folder) {
    const zel::String save = saveIn(folder);
    for (const zel::String& file : {save, save + BackupEnding})
        if (const SaveSummary summary = summaryOf(file, keptClosing(folder)); summary.isReadable)
            return summary.pilot;
    return {};
}

/// Removes what is left of a career that was begun and never saved.
void removeUnsaved(const zel::String& folder) {
    std::vector<zel::system::DirectoryEntry> entries;
    zel::system::listDirectory(folder, entries);
    for (const zel::system::DirectoryEntry& entry : entries)
        if (!entry.isDirectory && isCareerFile(entry.name))
            zel::system::removeFile(folder + "/" + entry.name);
}

} // namespace

bool Shelf::fail(const Problem& why) {
    if (!why.empty())
        trouble = why;
    zel::log(trouble.english(), "Shelf", zel::LogError);
    return false;
}

/// Moves a folder to the shelf, or to the careers put away. Its new path; empty on error.
zel::String Shelf::shelve(const zel::String& folder, const char* place) {
    const int32_t number = claimNumber(folder, trouble);
    const zel::String target = userPath(place) + "/" + shelfFolderName(number, pilotIn(folder));
    const bool isMoved = number > 0 && makeFolder(userPath(ShelfFolder), trouble) &&
                         makeFolder(userPath(place), trouble) &&
                         moveFolder(folder, target, trouble);
    return isMoved ? target : zel::String();
}

/// The career in memory must not be saved over the one that comes in its place.
void Shelf::leaveCurrent() {
    // Another program that has the record open loses nothing: all its files move with the folder,
    // or the folder can't be moved, which is reported.
    static_cast<void>(record.close());
    career.squadrons.clear();
    career.pilots.clear();
    career.repairs = {};
    career.damagedSave = "";
    career.isUnsaved = false;
    onItsWay.reset();
}

/// Puts the folder of an incoming career in the place of the current one, which goes to the shelf.
bool Shelf::swapIn(const zel::String& incoming) {
    zel::String shelved;
    if (holdsCareer(currentFolder())) {
        shelved = shelve(currentFolder(), ShelfFolder);
        if (shelved.empty())
            return false;
    } else if (!clearFolder(currentFolder(), trouble)) {
        return false;
    }
    if (moveFolder(incoming, currentFolder(), trouble))
        return true;
    Problem other;
    if (!shelved.empty() && !moveFolder(shelved, currentFolder(), other))
        zel::log(other.english(), "Shelf", zel::LogError);
    return false;
}

/// Another program that has a career open must not lose its folder.
bool Shelf::holdsLock() {
    return career.lock == nullptr || career.lock->take() || fail(heldBy(*career.lock));
}

/// Ends the move of a career that was on its way.
bool Shelf::settleIncoming() {
    const zel::String incoming = incomingFolder();
    if (!zel::system::isDirectory(incoming))
        return true;
    std::vector<zel::system::DirectoryEntry> entries;
    if (!listFolder(incoming, entries, trouble))
        return false;
    zel::log("A career was on its way when the program ended", "Shelf", zel::LogWarning);
    if (!holdsSave(incoming)) {
        removeUnsaved(incoming);
        return holdsCareer(incoming) || clearFolder(incoming, trouble);
    }
    return holdsCareer(currentFolder()) ? !shelve(incoming, ShelfFolder).empty() : swapIn(incoming);
}

bool Shelf::tidy() {
    if (!holdsLock())
        return false;
    if (!settleIncoming())
        return fail();
    Problem unread;
    const std::vector<CareerFolder> folders = shelfFolders(unread);
    if (!unread.empty())
        return fail(unread);
    std::vector<int32_t> numbers;
    for (const CareerFolder& folder : folders) {
        const bool isTaken =
            std::find(numbers.begin(), numbers.end(), folder.number) != numbers.end();
        if ((folder.number == 0 || isTaken) && !renumber(folder.path))
            return fail();
        numbers.push_back(folder.number);
    }
    for (const zel::String& folder :
         {currentFolder(), currentFolder() + "/" + PagesFolder, userPath(ShelfFolder)})
        zel::removeLeftDrafts(folder, nameOfFolder(SaveFileName));
    return true;
}

/// Gives a folder that the player has put on the shelf a number of its own.
bool Shelf::renumber(const zel::String& folder) {
    std::string_view name = nameOfFolder(folder);
    const std::string_view parent = folder.view().substr(0, folder.view().size() - name.size());
    if (numberOfFolder(name) > 0)
        name = name.substr(std::min(name.find(' ') + 1, name.size()));
    Problem unread;
    const int32_t number = nextNumber(shelfFolders(unread));
    if (!unread.empty())
        return fail(unread);
    return keepNumber(folder, number, trouble) &&
           moveFolder(folder, parent + shelfFolderName(number, name), trouble);
}

std::vector<ShelvedCareer> Shelf::careers() const {
    Problem unread;
    std::vector<ShelvedCareer> careers = this->careers(unread);
    if (!unread.empty())
        zel::log(unread.english(), "Shelf", zel::LogError);
    return careers;
}

std::vector<ShelvedCareer> Shelf::careers(Problem& unread) const {
    std::vector<ShelvedCareer> careers;
    const std::vector<CareerFolder> folders = shelfFolders(unread);
    if (holdsCareer(currentFolder())) {
        const int32_t kept = keptNumber(currentFolder());
        const bool isFree = std::none_of(folders.begin(), folders.end(),
                                         [&](const auto& other) { return other.number == kept; });
        careers.push_back(
            careerIn(currentFolder(), kept > 0 && isFree ? kept : nextNumber(folders)));
        careers.back().isCurrent = true;
    }
    for (const CareerFolder& folder : folders) {
        careers.push_back(careerIn(folder.path, folder.number));
        careers.back().isPutAway = folder.isPutAway;
    }
    std::stable_sort(careers.begin(), careers.end(), [](const auto& a, const auto& b) {
        if (a.isCurrent != b.isCurrent)
            return a.isCurrent;
        if (a.isPutAway != b.isPutAway)
            return b.isPutAway;
        return a.summary.order > b.summary.order;
    });
    return careers;
}

std::vector<SavePage> Shelf::pages(const ShelvedCareer& of) {
    return savePages(saveIn(of.folder), recordedIn(of.folder), keptClosing(of.folder));
}

std::optional<ShelvedCareer> Shelf::find(int32_t number) {
    Problem unread;
    const std::vector<ShelvedCareer> all = careers(unread);
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.number == number; });
    if (unread.empty() && found != all.end())
        return *found;
    fail(unread.empty() ? Problem(wording::NoSuchCareer, {number}) : unread);
    return std::nullopt;
}

bool Shelf::take(int32_t number) {
    const std::optional<ShelvedCareer> wanted = find(number);
    if (!wanted || wanted->isCurrent)
        return wanted.has_value();
    if (wanted->summary.isOtherVersion)
        return fail(Problem(wording::CareerOfOther, {wanted->folder}));
    if (!wanted->summary.isReadable && !hasWholePage(wanted->folder))
        return fail(Problem(wording::DamagedCareer, {wanted->folder}));
    if (!holdsLock())
        return false;
    leaveCurrent();
    if (!settleIncoming() || !keepNumber(wanted->folder, number, trouble) ||
        !moveFolder(wanted->folder, incomingFolder(), trouble))
        return fail();
    if (swapIn(incomingFolder()))
        return true;
    Problem other;
    if (!moveFolder(incomingFolder(), wanted->folder, other))
        zel::log(other.english(), "Shelf", zel::LogError);
    return fail();
}

bool Shelf::putAway(int32_t number) {
    const std::optional<ShelvedCareer> wanted = find(number);
    if (!wanted || wanted->isPutAway)
        return wanted.has_value();
    if (!holdsLock())
        return false;
    if (wanted->isCurrent) {
        leaveCurrent();
        return !shelve(currentFolder(), PutAwayFolder).empty() || fail();
    }
    const zel::String target = userPath(PutAwayFolder) + "/" + nameOfFolder(wanted->folder);
    return (makeFolder(userPath(PutAwayFolder), trouble) &&
            moveFolder(wanted->folder, target, trouble)) ||
           fail();
}

bool Shelf::close(int32_t fallen) {
    const Closing closing = {fallen, career.playerPilot, career.calendar().dateNumber()};
    if (!holdsLock())
        return false;
    if (!keepClosing(currentFolder(), closing, trouble))
        return fail();
    leaveCurrent();
    return !shelve(currentFolder(), ShelfFolder).empty() || fail();
}

Closing Shelf::closing() const { return keptClosing(currentFolder()); }

bool Shelf::reopen() { return keepClosing(currentFolder(), {}, trouble) || fail(); }

bool Shelf::turnBack(const ShelvedCareer& of, const SavePage& page) {
    if (!holdsLock())
        return false;
    if (of.isCurrent)
        leaveCurrent();
    return (keepRecord(of.folder, trouble) &&
            returnToPage(saveIn(of.folder), page, recordedIn(of.folder), trouble)) ||
           fail();
}

bool Shelf::save() {
    career.writeFault = zel::FileFault::None;
    // What was begun here replaces nothing that another program has saved meanwhile.
    if (career.isReadOnly && career.isUnsaved)
        career.isReadOnly = !holdsLock();
    const bool isTriedAgain = onItsWay == career.careerNumber;
    const bool isAnother = career.isUnsaved && (isTriedAgain || holdsCareer(currentFolder()));
    if (!isAnother || career.isReadOnly)
        return write(CurrentFolder);
    // The new career is written whole before the current one is moved, and over no other one that
    // is still on its way.
    if ((!isTriedAgain && !settleIncoming()) || !makeFolder(incomingFolder(), trouble))
        return fail();
    onItsWay = career.careerNumber;
    record.keepIn(IncomingFolder);
    if (!write(IncomingFolder))
        return false;
    career.isUnsaved = true;
    record.release();
    const bool isIn = swapIn(incomingFolder());
    record.reopen(career, isIn ? CurrentFolder : IncomingFolder);
    career.isUnsaved = !isIn;
    career.damagedSave = "";
    if (isIn)
        onItsWay.reset();
    return isIn || fail();
}

bool Shelf::write(const char* folder) {
    const zel::String name = saveIn(folder);
    return career.writeSave(name) ||
           fail(career.isReadOnly ? heldBy(*career.lock)
                                  : Problem(wording::CareerUnwritten, {userPath(name.c_str())},
                                            career.writeFault));
}
