#include "app/screens/FolderWalk.h"

#include <algorithm>

#include "app/mission/SimulatorChecks.h"
#include "engine/core/Directory.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"

namespace {

constexpr std::string_view Separators = "\\/";
constexpr const char* DataFolder = "data";

/// Empty for a root, including that of a network share.
std::string_view parentOf(std::string_view path) {
    const bool isShare = path.substr(0, 2) == "\\\\";
    const size_t separator = zel::withoutSeparator(path).find_last_of(Separators);
    if (separator == path.npos || separator + 1 == path.size() ||
        (isShare && path.find_last_of(Separators, separator - 1) < 2))
        return {};
    // A folder of Wine may also be named "d:".
    const bool isRoot = separator == 0 || (separator == 2 && path[1] == ':');
    return path.substr(0, isRoot ? separator + 1 : separator);
}

/// The last name of a path; all of it without separators.
std::string_view nameOf(std::string_view path) {
    return path.substr(path.find_last_of(Separators) + 1); // npos + 1 is 0
}

std::string joinedPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (Separators.find(path.back()) == Separators.npos)
        path += path.front() == '/' ? '/' : '\\';
    return path += name;
}

bool isHidden(std::string_view name) { return name.front() == '.' || name.front() == '$'; }

bool sortsBefore(const zel::String& a, const zel::String& b) {
    if (isHidden(a.view()) != isHidden(b.view()))
        return isHidden(b.view());
    const zel::String lowerA = a.toLower();
    const zel::String lowerB = b.toLower();
    return lowerA.view() != lowerB.view() ? lowerA.view() < lowerB.view() : a.view() < b.view();
}

} // namespace

void FolderWalk::open(const zel::String& newFolder) {
    folder = zel::String(zel::withoutSeparator(newFolder.view()));
    if (folder.empty())
        openDrives();
    else
        list();
}

void FolderWalk::openDrives() {
    folder = {};
    readable = true;
    names = zel::system::driveRoots();
}

void FolderWalk::goHome() { open(zel::system::homeDirectory()); }

void FolderWalk::enter(size_t row) {
    const zel::String name = names[row];
    open(isAtDrives() ? name : zel::String(joinedPath(folder.view(), name.view())));
}

bool FolderWalk::canGoUp() const { return !parentOf(folder.view()).empty(); }

int32_t FolderWalk::goUp() {
    if (!canGoUp())
        return -1;
    const std::string left(nameOf(folder.view()));
    open(zel::String(std::string(parentOf(folder.view()))));
    const auto found = std::find(names.begin(), names.end(), zel::String(left));
    return found != names.end() ? int32_t(found - names.begin()) : -1;
}

void FolderWalk::list() {
    std::vector<zel::system::DirectoryEntry> entries;
    names.clear();
    readable = zel::system::listDirectory(folder, entries);
    for (const zel::system::DirectoryEntry& entry : entries)
        if (entry.isDirectory)
            names.emplace_back(entry.name);
    std::sort(names.begin(), names.end(), sortsBefore);
}

int32_t FolderWalk::find(char letter, int32_t from) const {
    const auto fits = [&](int32_t row) {
        const zel::String shown = zel::system::shownText(names[row]);
        return !shown.empty() && zel::lower(shown.view().front()) == zel::lower(letter);
    };
    const auto count = int32_t(names.size());
    const int32_t start = from >= 0 && from < count && fits(from) ? from + 1 : 0;
    for (int32_t i = 0; i < count; ++i)
        if (const int32_t row = (start + i) % count; fits(row))
            return row;
    return -1;
}

bool FolderWalk::isInData() const {
    return canGoUp() && zel::equalsNoCase(nameOf(folder.view()), DataFolder) &&
           holdsSimulator(zel::String(parentOf(folder.view())));
}

zel::String FolderWalk::simulatorHere() const {
    if (isAtDrives())
        return {};
    if (isInData())
        return zel::String(parentOf(folder.view()));
    return holdsSimulator(folder) ? folder : zel::String();
}
