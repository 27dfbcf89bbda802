#pragma once

#include <cstdint>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"
#include "engine/core/SystemFiles.h"

namespace zel {

/// A file that shows that one program alone works in a folder. It holds the process id. The lock
/// ends with the process, so that what a dead process left is taken over.
class LockFile {
public:
    /// Takes the lock, or does nothing if this object has it on that path already and its file is
    /// still there; any other that it has is released. On error: false; holder() or fault() has the
    /// reason.
    [[nodiscard]] bool take(const String& path);
    /// Removes the file. Also at the end of the object.
    void release();
    bool isHeld() const { return lock.isHeld(); }

    /// Process id of the program that had the lock when it was asked for last; 0 if it is unknown
    /// or none had it.
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
