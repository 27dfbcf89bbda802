#pragma once

#include <map>
#include <string>

#include "engine/core/String.h"

namespace standin {

/// Watches data/Missions for files that are new or have been written again. A file counts once it
/// looks the same twice in a row, so that no half-written file is flown.
///
/// Files older than the newest log count as already flown; logs dated in the future don't count.
class MissionWatch {
public:
    explicit MissionWatch(const zel::String& dir);

    /// Looks into the folder once. Returns the name of a mission to fly, each one once; empty if
    /// there is none.
    zel::String poll();

private:
    struct Looks {
        int64_t size = -1;    // bytes
        int64_t changed = -1; // in the system's own units
        bool operator==(const Looks& other) const {
            return size == other.size && changed == other.changed;
        }
    };
    struct Seen {
        Looks last;  // at the last look
        Looks flown; // when it was returned
    };

    zel::String dir;
    std::map<std::string, Seen> missions; // by name
};

} // namespace standin
