#include "engine/core/Directory.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/core/SystemFiles.h"

namespace zel {

namespace {

bool isBefore(std::string_view a, std::string_view b) {
    const auto byte = [](char character) { return static_cast<unsigned char>(lower(character)); };
    const auto difference = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                          [&](char x, char y) { return byte(x) == byte(y); });
    if (difference.first != a.end() && difference.second != b.end())
        return byte(*difference.first) < byte(*difference.second);
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

bool isSeparator(char character) { return character == '\\' || character == '/'; }

} // namespace

bool fitsPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*")
        return true;
    size_t n = 0;
    size_t p = 0;
    size_t star = pattern.npos; // position of the last star, and in the name where its run ends
    size_t runEnd = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            runEnd = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || lower(pattern[p]) == lower(name[n]))) {
            ++p;
            ++n;
        } else if (star != pattern.npos) {
            p = star + 1;
            n = ++runEnd;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

std::string_view withoutSeparator(std::string_view folder) {
    const auto isDrive = [&] { return folder.size() == 3 && folder[1] == ':'; };
    while (folder.size() > 1 && isSeparator(folder.back()) && !isDrive())
        folder.remove_suffix(1);
    return folder;
}

bool Directory::list(const String& path, const String& pattern) {
    const bool isReadable = system::listDirectory(path, entries);
    why = isReadable ? FileFault::None : system::lastFault();
    if (!isReadable)
        log("Path not found: " + path, "Directory", LogWarning);
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [&](const system::DirectoryEntry& entry) {
                                     return entry.name.front() == '.' ||
                                            !fitsPattern(entry.name, pattern);
                                 }),
                  entries.end());
    std::sort(entries.begin(), entries.end(),
              [](const system::DirectoryEntry& a, const system::DirectoryEntry& b) {
                  return isBefore(a.name, b.name);
              });
    return isReadable;
}

bool Directory::holds(std::string_view name) const {
    const auto found = std::lower_bound(
        entries.begin(), entries.end(), name,
        [](const system::DirectoryEntry& a, std::string_view b) { return isBefore(a.name, b); });
    return found != entries.end() && found->name == name;
}

bool Directory::create(const String& path) {
    const std::string_view folder = withoutSeparator(path.view());
    if (folder.empty() || system::isDirectory(String(folder)))
        return true;
    const size_t separator = folder.find_last_of("\\/");
    if (separator != folder.npos && separator > 0 && !create(String(folder.substr(0, separator))))
        return false;
    return system::createDirectory(String(folder));
}

} // namespace zel
