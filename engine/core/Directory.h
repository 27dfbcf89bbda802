#pragma once

#include <vector>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"
#include "engine/core/System.h"

namespace zel {

/// A folder's listing: files and sub-folders whose names match a pattern, sorted by their lowered
/// bytes and then by their bytes. Names that begin with "." are left out.
class Directory {
public:
    Directory() = default;
    Directory(const String& path, const String& pattern) { list(path, pattern); }
    virtual ~Directory() = default;

    /// Lists again. False for a folder that doesn't exist or can't be read: it is logged ("Path not
    /// found: ") and gives an empty list.
    bool list(const String& path, const String& pattern);
    /// Why the last listing failed.
    FileFault fault() const { return why; }
    /// Empties the list.
    void clear() { entries.clear(); }
    int32_t count() const { return static_cast<int32_t>(entries.size()); }
    /// REQUIRES: 0 <= index < count().
    String name(int32_t index) const { return String(entries[index].name); }
    bool isDirectory(int32_t index) const { return entries[index].isDirectory; }
    /// Whether it lists exactly that name.
    bool holds(std::string_view name) const;

    /// Makes the folder, and its parents as needed. True if it is there afterwards.
    static bool create(const String& path);

private:
    std::vector<system::DirectoryEntry> entries;
    FileFault why = FileFault::None;
};

/// "*" matches any run of characters, "?" a single one; every other character, "[" too, matches
/// itself without regard to case. "*.*" matches every name, even one without a dot.
bool fitsPattern(std::string_view name, std::string_view pattern);

/// A folder without the separators at its end. A root keeps its own: "/", "C:\".
std::string_view withoutSeparator(std::string_view folder);

} // namespace zel
