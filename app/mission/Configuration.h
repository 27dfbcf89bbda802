#pragma once

#include "engine/core/String.h"

/// The setting that names the simulator's folder.
constexpr const char* SimulatorKey = "rof.directory";

/// The settings that a player edits by hand, and the one place that knows where the simulator is.
/// All of it is static; docs/manual.md describes the file.
class Configuration {
public:
    virtual ~Configuration() = default;

    /// Adds a file's entries, `key=value` a line, to those held. A missing file is an empty one. On
    /// Windows values may be in UTF-8, as its editor saves them, or in the system's code page.
    static void load(const zel::String& fileName);
    /// The value, or `defaultValue` where it is missing or empty. Keys don't distinguish case.
    static zel::String get(const zel::String& key, const zel::String& defaultValue);
    static void set(const zel::String& key, const zel::String& value);
    /// The simulator's folder, to be joined directly with "data\\" and the like. Empty if neither
    /// the settings nor the Windows registry names one; paths are then relative to the current
    /// folder.
    static zel::String getRofDirectory();
    /// The simulator's folder according to the Windows registry; empty if it names none.
    static zel::String installedDirectory();
    /// Back to the state at the program's start: no values and no known folder.
    static void reset();
};
