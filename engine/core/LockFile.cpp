#include "engine/core/LockFile.h"

#include <charconv>
#include <string>

#include "engine/core/File.h"
#include "engine/core/System.h"

namespace zel {

namespace {

constexpr int32_t MostText = 64; // bytes of a lock file

/// The process that a lock file names; 0 if it names none.
uint32_t namedProcess(const String& path) {
    std::string text;
    uint32_t process = 0;
    if (readFile(path, MostText, text))
        std::from_chars(text.data(), text.data() + text.size(), process);
    return process;
}

/// The same from a file that another program has just locked and may still be writing.
uint32_t waitForProcess(const String& path) {
    constexpr int32_t Attempts = 20;
    for (int32_t attempt = 0; attempt < Attempts; ++attempt) {
        if (const uint32_t process = namedProcess(path); process != 0)
            return process;
        system::sleepMilliseconds(5);
    }
    return 0;
}

} // namespace

bool LockFile::take(const String& path) {
    if (isHeld() && lockedPath == path && lock.isInPlace())
        return true;
    release();
    otherProcess = 0;
    why = FileFault::None;
    if (lock.take(path, std::to_string(system::processId()) + "\n")) {
        lockedPath = path;
        return true;
    }
    why = system::lastFault();
    if (why == FileFault::Held)
        otherProcess = waitForProcess(path);
    return false;
}

void LockFile::release() { lock.release(); }

} // namespace zel
