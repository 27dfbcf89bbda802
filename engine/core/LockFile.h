#pragma once

#include <cstdint>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"
#include "engine/core/SystemFiles.h"

namespace zel {

/// A file that shows that one program alone works in a folder. It holds the process id. The lock
/// ends with the process, so a file that a dead process left is taken over.
class LockFile {
public:
    /// Takes the lock, or does nothing if this object already has it on that path and its file
    /// still exists. A lock on another path is released. On error: false; holder() or fault() has
    /// the reason.
    [[nodiscard]] bool take(const String& path);
    /// Removes the file. The destructor does so too.
    void release();
    bool isHeld() const { return lock.isHeld(); }

    /// Process id of the program that had the lock at the last attempt to take it; 0 if it is
    /// unknown or none had it.
    uint32_t holder() const { return otherProcess; }
    /// Why the lock could not be taken: Held if another program has it.
    FileFault fault() const { return why; }

private:
    system::FileLock lock;
    String lockedPath;
    uint32_t otherProcess = 0;
    FileFault why = FileFault::None;
};

} // namespace zel
