#pragma once

#include <vector>

#include "engine/core/String.h"
#include "engine/core/System.h"

namespace zel {

/// A folder's listing: files and sub-folders whose names fit a pattern, sorted by their lowered
/// bytes and then by their bytes. Names that begin with "." are left out.
class Directory {
public:
    Directory() = default;
    Directory(const String& path, const String& pattern) { list(path, pattern); }
    virtual ~Directory() = default;

    /// Lists anew. False for a folder that doesn't exist or can't be read: it is logged ("Path not
    /// found: ") and gives an empty list.
    bool list(const String& path, const String& pattern);
    void clear() { entries.clear(); }
    int32_t count() const { return static_cast<int32_t>(entries.size()); }
    /// REQUIRES: 0 <= index < count().
    String name(int32_t index) const { return String(entries[static_cast<size_t>(index)].name); }
    bool isDirectory(int32_t index) const {
        return entries[static_cast<size_t>(index)].isDirectory;
    }
    bool holds(std::string_view name) const;

    /// Makes the folder, and its parents as needed. True if it is there afterwards.
    static bool create(const String& path);

private:
    std::vector<system::DirectoryEntry> entries;
};

/// "*" stands for any run of characters, "?" for one; all else, "[" too, for itself, without regard
/// to case. "*.*" fits every name, also one without a dot.
bool fitsPattern(std::string_view name, std::string_view pattern);

} // namespace zel
