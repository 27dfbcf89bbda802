#pragma once

#include "engine/core/String.h"

namespace zel {

/// The player's preferences: a small store of texts by key, kept in prefs.dat of the user's folder.
/// It has nothing to do with the registry of Windows. The file's form is in docs/formats.md.
class Registry {
public:
    /// The stored value, or `defaultValue`, which isn't stored. Loads the file at the first use.
    static String get(const String& key, const String& defaultValue);
    /// Whether a value is stored, the empty text included. Loads as `get` does.
    static bool has(const String& key);
    /// Stores, and writes the file at once unless saving is deferred.
    static void set(const String& key, const String& value);
    /// A switch of the player: on unless its value is the number 0. Unset is on.
    static bool isOn(const String& key) { return get(key, "1").toInt() != 0; }

    static void setDeferSave(bool defer);
    /// The file before it stays as ".bak", or as ".damaged" if it wasn't whole when it was read. On
    /// error: a line on standard output and one of level 2 in the log; the values stay in memory.
    static void save();
    /// Adds what the file holds to the values in memory. A missing file is an empty one; a broken
    /// one is read as far as it goes, one that can't be read not at all, both with a log line.
    static void load();
    /// Empties the store in memory. The next `get` doesn't load again.
    static void clear();
    /// As at the program's start: empty, and loaded again at the next use.
    static void reset();
};

} // namespace zel
