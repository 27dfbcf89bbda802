#pragma once

#include "engine/core/String.h"

namespace zel {

/// The player's preferences: a small key-value store of texts, kept in prefs.dat in the user's
/// folder. It has nothing to do with the Windows registry. docs/formats.md describes the file.
class Registry {
public:
    /// The stored value, or `defaultValue`, which isn't stored. Loads the file at first use.
    static String get(const String& key, const String& defaultValue);
    /// Whether a value is stored, the empty text included. Loads as `get` does.
    static bool has(const String& key);
    /// Stores a value, and writes the file at once unless saving is deferred.
    static void set(const String& key, const String& value);
    /// A switch: on unless its value is the number 0. Unset means on.
    static bool isOn(const String& key) { return get(key, "1").toInt() != 0; }

    /// Whether set() leaves the file alone until save().
    static void setDeferSave(bool defer);
    /// Writes the file. The previous one is kept as ".bak", or as ".damaged" if it wasn't whole
    /// when it was read. On error: a line on standard output and one of level 2 in the log; the
    /// values stay in memory.
    static void save();
    /// Adds the file's entries to the values in memory. A missing file counts as empty. A damaged
    /// one is read as far as possible, an unreadable one not at all; both are logged.
    static void load();
    /// Empties the store in memory. The next `get` doesn't load again.
    static void clear();
    /// Back to the state at the program's start: empty, and loaded again at the next use.
    static void reset();
};

} // namespace zel
