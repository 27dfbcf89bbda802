#include "app/mission/SimulatorWalk.h"

#include <algorithm>
#include <cstdio>

#include "app/mission/SimulatorChecks.h"
#include "app/mission/SteamFiles.h"
#include "engine/core/Directory.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/TextLines.h"

namespace {

constexpr const char* SteamNumber = "244050"; // of the simulator
constexpr size_t LongestFile = 1 << 20;       // of Steam and Lutris

// How far below the root of a disk, of a prefix's drive and of the player's folder the simulator
// may be: Program Files (x86)/MAKER/Rise of Flight.
constexpr int32_t DriveDepth = 3;
constexpr int32_t GamesDepth = 5; // NAME/drive_c/Program Files (x86)/MAKER/Rise of Flight

/// Steam's own folder below the player's: of the system's package, its older link, and of Flatpak
/// and Snap.
constexpr const char* SteamFolders[] = {
    "/.steam/steam",
    "/.steam/root",
    "/.local/share/Steam",
    "/.var/app/com.valvesoftware.Steam/.local/share/Steam",
    "/.var/app/com.valvesoftware.Steam/data/Steam",
    "/snap/steam/common/.local/share/Steam",
};
/// Folders of prefixes below the player's.
constexpr const char* PrefixFolders[] = {
    "/.local/share/bottles/bottles",
    "/.var/app/com.usebottles.bottles/data/bottles/bottles",
    "/.local/share/wineprefixes",
    "/.PlayOnLinux/wineprefix",
};
/// Where Lutris describes its games.
constexpr const char* LutrisFolders[] = {
    "/.config/lutris/games",
    "/.local/share/lutris/games",
    "/.var/app/net.lutris.Lutris/config/lutris/games",
    "/.var/app/net.lutris.Lutris/data/lutris/games",
};
/// Steam's libraries on a disk, besides those that Steam lists.
constexpr const char* DriveLibraries[] = {"/SteamLibrary", "/Steam", "/Games/Steam",
                                          "/Program Files (x86)/Steam", "/Program Files/Steam"};
/// Folders of the system, without games, and those whose size would use up the bounds.
constexpr std::string_view PassedOver[] = {
    "windows",    "programdata", "users", "$recycle.bin", "system volume information",
    "appdata",    "proc",        "sys",   "dev",          "run",
    "lost+found",
};

bool isPassedOver(std::string_view name) {
    return name.empty() || name.front() == '.' ||
           std::any_of(std::begin(PassedOver), std::end(PassedOver),
                       [&](std::string_view passed) { return zel::equalsNoCase(name, passed); });
}

/// The content of a small file; empty on error. The engine's own readers log, for which this may be
/// the wrong thread.
std::string contentOf(const zel::String& file) {
    FILE* const stream = zel::system::openFile(file, "rb");
    if (stream == nullptr)
        return {};
    std::string content(LongestFile, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), stream));
    std::fclose(stream);
    return content;
}

/// Whether this or a later simulator is there: nothing else has such a file in its folder "data".
bool hasStartup(const zel::String& folder) {
    return zel::system::fileStatus(startupFileIn(folder)).exists;
}

/// The root of a path with all links followed: "/", or under Wine that of a drive.
bool isRoot(const zel::String& canonical) {
    return !canonical.empty() &&
           (canonical.view().back() == '/' || canonical.view().back() == '\\');
}

/// Judged by the path: a folder found on a disk may belong to Steam or Wine all the same.
FoundBy byPath(const zel::String& folder, FoundBy foundBy) {
    if (foundBy != FoundBy::Drive)
        return foundBy;
    std::string path(folder.toLower().view());
    std::replace(path.begin(), path.end(), '\\', '/');
    const auto holds = [&](const char* part) { return path.find(part) != std::string::npos; };
    if (holds("/steamapps/common/"))
        return FoundBy::Steam;
    if (holds("/pfx/drive_c/"))
        return FoundBy::Proton;
    return holds("/drive_c/") ? FoundBy::Wine : foundBy;
}

} // namespace

bool SimulatorWalk::isOver() {
    isCut = isCut || listed >= bounds.folders || known.size() >= bounds.places || !mayGoOn();
    return isCut;
}

std::vector<zel::String> SimulatorWalk::foldersIn(const zel::String& folder) {
    std::vector<zel::String> names;
    if (folder.empty() || isOver())
        return names;
    ++listed;
    std::vector<zel::system::DirectoryEntry> entries;
    zel::system::listDirectory(folder, entries);
    for (const zel::system::DirectoryEntry& entry : entries)
        if (entry.isDirectory)
            names.emplace_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
}

void SimulatorWalk::checkFolder(const zel::String& folder, FoundBy foundBy) {
    if (!holdsSimulator(folder) || isOver())
        return;
    const zel::String path = zel::withoutSeparator(zel::system::absolutePath(folder));
    if (known.insert(zel::system::canonicalPath(folder)).second)
        found({path, byPath(path, foundBy)});
}

bool SimulatorWalk::run(const SearchRoots& roots) {
    checkFolder(roots.lastTime, FoundBy::LastTime);
    checkFolder(roots.registry, FoundBy::Registry);
    lookInSteam(roots.steam);
    if (!roots.home.empty())
        for (const char* steam : SteamFolders)
            lookInSteam(roots.home + steam);
    lookInPrefix(roots.winePrefix, FoundBy::Wine);
    if (!roots.home.empty()) {
        lookInPrefix(roots.home + "/.wine", FoundBy::Wine);
        for (const char* prefixes : PrefixFolders)
            lookInPrefixes(roots.home + prefixes, "", FoundBy::Wine);
        for (const char* games : LutrisFolders)
            lookInLutris(roots.home + games);
    }
    for (const zel::String& drive : roots.drives)
        lookOnDrive(drive);
    walk(); // prefixes
    if (!roots.home.empty()) {
        queue.push_back({roots.home + "/Games", GamesDepth, FoundBy::Drive});
        queue.push_back({roots.home, DriveDepth, FoundBy::Drive});
    }
    for (const zel::String& drive : roots.drives)
        queue.push_back({drive, DriveDepth, FoundBy::Drive});
    walk();
    return !isCut;
}

void SimulatorWalk::lookInSteam(const zel::String& steam) {
    if (steam.empty() || !zel::system::isDirectory(steam))
        return;
    lookInLibrary(steam);
    for (const char* list : {"/steamapps/libraryfolders.vdf", "/config/libraryfolders.vdf"})
        for (const zel::String& library : steamLibraries(contentOf(steam + list)))
            lookInLibrary(library);
}

void SimulatorWalk::lookInLibrary(const zel::String& library) {
    const zel::String apps = library + "/steamapps";
    const zel::String canonical = zel::system::canonicalPath(apps);
    if (canonical.empty() || !libraries.insert(canonical).second)
        return;
    const zel::String common = apps + "/common";
    const zel::String manifest = apps + "/appmanifest_" + SteamNumber + ".acf";
    if (const zel::String name = steamInstallFolder(contentOf(manifest)); !name.empty())
        checkFolder(common + "/" + name, FoundBy::Steam);
    for (const zel::String& name : foldersIn(common))
        checkFolder(common + "/" + name, FoundBy::Steam);
    lookInPrefixes(apps + "/compatdata", "/pfx", FoundBy::Proton);
}

void SimulatorWalk::lookInPrefixes(const zel::String& folder, const zel::String& inner,
                                   FoundBy foundBy) {
    for (const zel::String& name : foldersIn(folder))
        lookInPrefix(folder + "/" + name + inner, foundBy);
}

// The other drives of a prefix are links to folders elsewhere, one of them to the root of all. That
// isn't the prefix's, and a Windows program under Wine has it among its own drives.
void SimulatorWalk::lookInPrefix(const zel::String& prefix, FoundBy foundBy) {
    if (prefix.empty() || !zel::system::isDirectory(prefix))
        return;
    queue.push_back({prefix + "/drive_c", DriveDepth, foundBy});
    const zel::String devices = prefix + "/dosdevices";
    for (const zel::String& name : foldersIn(devices)) {
        const zel::String drive = devices + "/" + name;
        if (!isRoot(zel::system::canonicalPath(drive)))
            queue.push_back({drive, DriveDepth, foundBy});
    }
}

// A game's description has a line "prefix: PATH".
void SimulatorWalk::lookInLutris(const zel::String& folder) {
    constexpr std::string_view Key = "prefix:";
    std::vector<zel::system::DirectoryEntry> entries;
    if (isOver())
        return;
    zel::system::listDirectory(folder, entries);
    for (const zel::system::DirectoryEntry& entry : entries) {
        if (entry.isDirectory || isOver())
            continue;
        zel::forEachLine(contentOf(folder + "/" + entry.name), [&](std::string_view line) {
            line = zel::trimmed(line, ' ');
            if (line.substr(0, Key.size()) != Key)
                return;
            const std::string_view path = zel::trimmed(line.substr(Key.size()), ' ');
            lookInPrefix(zel::trimmed(zel::trimmed(path, '\''), '"'), FoundBy::Wine);
        });
    }
}

void SimulatorWalk::lookOnDrive(const zel::String& drive) {
    const zel::String root = zel::withoutSeparator(drive);
    for (const char* library : DriveLibraries)
        lookInLibrary(root + library);
    for (const char* folder : {"/Program Files (x86)", "/Program Files", "/Games", ""})
        checkFolder(root + folder + "/Rise of Flight", FoundBy::Drive);
}

void SimulatorWalk::walk() {
    while (!queue.empty() && !isOver()) {
        const Pending next = queue.front();
        queue.pop_front();
        visit(next);
    }
    isCut = isCut || !queue.empty();
}

void SimulatorWalk::visit(const Pending& pending) {
    const zel::String canonical = zel::system::canonicalPath(pending.folder);
    if (canonical.empty() || !visited.insert(canonical).second)
        return;
    for (const zel::String& name : foldersIn(pending.folder)) {
        if (zel::equalsNoCase(name, "data") && hasStartup(pending.folder))
            checkFolder(pending.folder, pending.foundBy);
        else if (pending.depth > 0 && !isPassedOver(name))
            queue.push_back({pending.folder + "/" + name, pending.depth - 1, pending.foundBy});
    }
}
