#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/SystemPosix.h"

namespace zel::system {

namespace {

std::string_view lastPart(std::string_view path) {
    return path.substr(path.find_last_of("\\/") + 1); // npos + 1 is 0
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Wine gives its processes the Windows path of their program as their first argument; its loader
/// has it among the others.
bool runsProgram(std::string_view commandLine, std::string_view name) {
    const std::string_view first = commandLine.substr(0, commandLine.find('\0'));
    const bool isLoader = equalsNoCase(lastPart(first).substr(0, 4), "wine");
    while (!commandLine.empty()) {
        const size_t end = std::min(commandLine.find('\0'), commandLine.size());
        if (equalsNoCase(lastPart(commandLine.substr(0, end)), name))
            return true;
        if (!isLoader)
            return false;
        commandLine.remove_prefix(std::min(end + 1, commandLine.size()));
    }
    return false;
}

void addFolders(const String& folder, std::vector<String>& found) {
    std::vector<DirectoryEntry> entries;
    listDirectory(folder, entries);
    for (const DirectoryEntry& entry : entries)
        if (entry.isDirectory)
            found.push_back(folder + "/" + entry.name);
}

} // namespace

std::vector<String> driveRoots() {
    std::vector<String> roots;
    for (const char* folder : {"/", "/media", "/mnt", "/run/media"})
        if (isDirectory(folder))
            roots.emplace_back(folder);
    return roots;
}

// Desktops mount a disk in a folder of the user's: /media/NAME/DISK, /run/media/NAME/DISK.
std::vector<String> localDrives() {
    std::vector<String> drives;
    addFolders("/mnt", drives);
    std::vector<String> users;
    addFolders("/media", users);
    addFolders("/run/media", users);
    for (const String& user : users) {
        drives.push_back(user);
        addFolders(user, drives);
    }
    return drives;
}

String canonicalPath(const String& path) {
    char* const resolved = realpath(nativePath(path).c_str(), nullptr);
    String result(resolved);
    std::free(resolved);
    return result;
}

// The system lets root write what is marked as read-only.
FileFault writeFault(const String& path) {
    const std::string name = nativePath(path);
    struct stat status;
    if (stat(name.c_str(), &status) != 0)
        return lastFault();
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return FileFault::ReadOnly;
    return access(name.c_str(), W_OK) == 0 ? FileFault::None : lastFault();
}

bool isProgramRunning(std::string_view name) {
    std::vector<DirectoryEntry> processes;
    listDirectory("/proc", processes);
    for (const DirectoryEntry& process : processes) {
        if (std::isdigit(static_cast<unsigned char>(process.name.front())) == 0)
            continue;
        const std::string folder = "/proc/" + process.name;
        const std::string title = contentOf(folder + "/comm"); // with a line feed
        if (equalsNoCase(trimmed(title, '\n'), name) ||
            runsProgram(contentOf(folder + "/cmdline"), name))
            return true;
    }
    return false;
}

String printedName(const String& name) { return name; }

bool hasOpenGl() {
    void* const library = dlopen("libGL.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr)
        return false;
    dlclose(library);
    return true;
}

} // namespace zel::system
