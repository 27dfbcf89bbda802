#include "app/record/ShelfFolders.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <set>
#include <string>

#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/record/CareerRecord.h"
#include "app/record/Shelf.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"

namespace {

constexpr const char* NumberFile = "/number.txt";          // in a career's folder
constexpr const char* ClosedFile = "/closed.txt";          // in a career's folder
constexpr const char* LastNumberFile = "/last number.txt"; // on the shelf
constexpr size_t LongestName = 40;                         // of a pilot in a folder's name
constexpr const char* PutAwayName = "Put away";            // PutAwayFolder on the shelf

/// 0 for what can't be the number of a career.
int32_t numberOr0(int32_t number) { return number <= LastShelfNumber ? std::max(number, 0) : 0; }

int32_t readNumber(const zel::String& file) {
    constexpr int32_t MostText = 32;
    std::string text;
    int32_t number = 0;
    if (zel::readFile(file, MostText, text))
        std::from_chars(text.data(), text.data() + text.size(), number);
    return numberOr0(number);
}

bool writeNumber(const zel::String& file, int32_t number, Problem& problem) {
    const zel::FileFault fault = zel::writeFileWhole(file, std::to_string(number) + "\n");
    if (fault != zel::FileFault::None)
        problem = Problem(wording::FileUnwritten, {file}, fault);
    return fault == zel::FileFault::None;
}

void addFolders(const zel::String& parent, bool isPutAway, std::vector<CareerFolder>& folders,
                Problem& problem) {
    std::vector<zel::system::DirectoryEntry> entries;
    if (!listFolder(parent, entries, problem))
        return;
    for (const zel::system::DirectoryEntry& entry : entries) {
        const zel::String path = parent + "/" + entry.name;
        const int32_t number = numberOfFolder(entry.name);
        // One that the program has named may have lost its save.
        const bool isCareer = entry.isDirectory && !zel::equalsNoCase(entry.name, PutAwayName) &&
                              (number > 0 ? holdsCareer(path) : holdsSave(path));
        if (isCareer)
            folders.push_back({number, path, isPutAway});
    }
}

zel::String parentOf(const zel::String& path) {
    const std::string_view text = path;
    return text.substr(0, text.find_last_of("\\/"));
}

bool startsWith(std::string_view text, std::string_view start) {
    return zel::equalsNoCase(text.substr(0, start.size()), start);
}

bool exists(const zel::String& path) {
    return zel::system::isDirectory(path) || zel::system::fileStatus(path).exists;
}

/// A relative link may lead nowhere from another folder.
bool isLink(const zel::String& path) {
    const zel::String target = zel::system::linkTarget(path);
    return target.view() != path.view() && target.view() != zel::system::absolutePath(path).view();
}

} // namespace

zel::String userPath(const char* folder) {
    return zel::system::absolutePath(zel::getUserDirectory() + folder);
}

zel::String shelfFolderName(int32_t number, std::string_view pilot) {
    constexpr std::string_view Reserved = "<>:\"/\\|?*";
    const auto cleaned = [&](std::string text) {
        for (char& character : text)
            if (static_cast<uint8_t>(character) < ' ' || character == '\x7F' ||
                Reserved.find(character) != Reserved.npos)
                character = '_';
        return text;
    };
    std::string name = cleaned(std::string(pilot.substr(0, LongestName)));
    name.erase(name.find_last_not_of(" .") + 1);
    if (name.empty())
        name = UnknownPilot;
    char start[16];
    std::snprintf(start, sizeof start, "%04d ", number);
    // Characters that file names lack become "?", which is then replaced.
    return start + cleaned(std::string(zel::system::nameFromUtf8(zel::utf8Of(name)).view()));
}

int32_t numberOfFolder(std::string_view name) {
    int32_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isWhole = end == name.data() + name.size() || *end == ' ';
    return error == std::errc() && isWhole ? numberOr0(number) : 0;
}

std::vector<CareerFolder> shelfFolders(Problem& problem) {
    std::vector<CareerFolder> folders;
    addFolders(userPath(ShelfFolder), false, folders, problem);
    if (problem.empty())
        addFolders(userPath(PutAwayFolder), true, folders, problem);
    std::sort(folders.begin(), folders.end(), [](const CareerFolder& a, const CareerFolder& b) {
        return std::pair(a.path.length(), a.path.view()) <
               std::pair(b.path.length(), b.path.view());
    });
    return folders;
}

std::string_view nameOfFolder(std::string_view path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

bool isCareerFile(std::string_view name) {
    return startsWith(name, nameOfFolder(SaveFileName)) || startsWith(name, "record") ||
           zel::equalsNoCase(name, "number.txt") || zel::equalsNoCase(name, PagesFolder);
}

bool belongsToCareer(const zel::String& path) {
    const zel::String file = zel::system::absolutePath(path);
    const zel::String own = zel::system::absolutePath(zel::getUserDirectory());
    return file.view().substr(0, own.view().size()) == own.view() &&
           isCareerFile(nameOfFolder(file));
}

bool listFolder(const zel::String& folder, std::vector<zel::system::DirectoryEntry>& entries,
                Problem& problem) {
    if (zel::system::listDirectory(folder, entries))
        return true;
    const zel::FileFault reason = zel::system::lastFault();
    entries.clear();
    if (reason == zel::FileFault::Missing)
        return true;
    problem = Problem(wording::FolderUnread, {folder}, reason);
    return false;
}

bool holdsCareer(const zel::String& folder) {
    std::vector<zel::system::DirectoryEntry> entries;
    Problem unread;
    return !listFolder(folder, entries, unread) ||
           std::any_of(entries.begin(), entries.end(),
                       [](const auto& entry) { return isCareerFile(entry.name); });
}

bool holdsSave(const zel::String& folder) {
    const zel::String save = saveIn(folder);
    return zel::system::fileStatus(save).exists ||
           zel::system::fileStatus(save + BackupEnding).exists ||
           zel::system::isDirectory(folder + "/" + PagesFolder);
}

zel::String saveIn(const zel::String& folder) { return folder + "/" + nameOfFolder(SaveFileName); }

zel::String recordIn(const zel::String& folder) { return folder + "/" + RecordFileName; }

int32_t keptNumber(const zel::String& folder) { return readNumber(folder + NumberFile); }

Closing keptClosing(const zel::String& folder) {
    constexpr int32_t MostText = 64;
    std::string text;
    if (!zel::readFile(folder + ClosedFile, MostText, text))
        return {};
    Closing closing;
    const char* const last = text.data() + text.size();
    const char* at = text.data();
    for (int32_t* number : {&closing.fallen, &closing.successor, &closing.date}) {
        const auto [end, fault] = std::from_chars(at, last, *number);
        if (fault != std::errc())
            return {};
        at = std::find_if(end, last, [](char character) { return character != ' '; });
    }
    return closing;
}

bool keepClosing(const zel::String& folder, const Closing& closing, Problem& problem) {
    const zel::String file = folder + ClosedFile;
    zel::FileFault fault = zel::FileFault::None;
    if (closing.fallen >= 0)
        fault = zel::writeFileWhole(file, std::to_string(closing.fallen) + " " +
                                              std::to_string(closing.successor) + " " +
                                              std::to_string(closing.date) + "\n");
    else if (zel::system::fileStatus(file).exists && !zel::system::removeFile(file))
        fault = zel::system::lastFault();
    if (fault != zel::FileFault::None)
        problem = Problem(wording::FileUnwritten, {file}, fault);
    return fault == zel::FileFault::None;
}

int32_t nextNumber(const std::vector<CareerFolder>& folders) {
    std::set<int32_t> taken = {readNumber(userPath(ShelfFolder) + LastNumberFile)};
    for (const char* folder : {CurrentFolder, IncomingFolder})
        taken.insert(keptNumber(userPath(folder)));
    for (const CareerFolder& folder : folders)
        taken.insert({folder.number, keptNumber(folder.path)});
    if (*taken.rbegin() < LastShelfNumber)
        return *taken.rbegin() + 1;
    int32_t free = 1;
    while (taken.count(free) > 0)
        ++free;
    return free;
}

bool keepNumber(const zel::String& folder, int32_t number, Problem& problem) {
    return keptNumber(folder) == number || writeNumber(folder + NumberFile, number, problem);
}

int32_t claimNumber(const zel::String& folder, Problem& problem) {
    const int32_t kept = keptNumber(folder);
    Problem unread;
    const std::vector<CareerFolder> others = shelfFolders(unread);
    if (!unread.empty()) {
        problem = unread;
        return 0;
    }
    const bool isFree = std::none_of(others.begin(), others.end(), [&](const CareerFolder& other) {
        return other.number == kept && other.path.view() != folder.view();
    });
    if (kept > 0 && isFree)
        return kept;
    const int32_t number = nextNumber(others);
    const bool isKept = makeFolder(userPath(ShelfFolder), problem) &&
                        writeNumber(userPath(ShelfFolder) + LastNumberFile, number, problem) &&
                        keepNumber(folder, number, problem);
    return isKept ? number : 0;
}

bool makeFolder(const zel::String& folder, Problem& problem) {
    if (zel::system::createDirectory(folder))
        return true;
    problem = Problem(wording::FolderNotMade, {folder}, zel::system::lastFault());
    return false;
}

bool moveFolder(const zel::String& from, const zel::String& to, Problem& problem) {
    for (const zel::String& moved : {from, saveIn(from)})
        if (isLink(moved)) {
            problem = Problem(wording::LinkNotMoved, {moved});
            return false;
        }
    if (exists(to)) {
        problem = Problem(wording::NameTaken, {from, to});
        return false;
    }
    if (!zel::system::renameFolder(from, to)) {
        problem = Problem(wording::NotMoved, {from, to}, zel::system::lastFault());
        return false;
    }
    if (zel::system::syncFolder(parentOf(to)) && zel::system::syncFolder(parentOf(from)))
        return true;
    problem = Problem(wording::NotMoved, {from, to}, zel::system::lastFault());
    zel::system::renameFolder(to, from);
    return false;
}

bool clearFolder(const zel::String& folder, Problem& problem) {
    if (!exists(folder) || zel::system::removeFolder(folder))
        return true;
    const zel::String other = folder + ".other";
    zel::String name = other;
    for (int32_t number = 2; exists(name); ++number)
        name = other + "-" + zel::String(std::to_string(number));
    if (!moveFolder(folder, name, problem))
        return false;
    zel::log("No career has the files of " + folder + "; they are in " + name, "Shelf",
             zel::LogWarning);
    return true;
}
