#include "app/career/CareerLock.h"

#include <string>

#include "app/career/Wording.h"
#include "engine/core/Directory.h"
#include "engine/core/Log.h"
#include "engine/core/UserDirectory.h"

namespace {

// The lock isn't in Saves, which moves to the shelf as a whole.
constexpr const char* LockName = "career.lock";

} // namespace

/// Its sessions share one. The process id wouldn't tell them apart from another program: two
/// programs in containers, or on two machines, may have the same.
std::shared_ptr<zel::LockFile> CareerLock::ofThisProcess() {
    static std::weak_ptr<zel::LockFile> known;
    std::shared_ptr<zel::LockFile> file = known.lock();
    if (file == nullptr)
        known = file = std::make_shared<zel::LockFile>();
    return file;
}

bool CareerLock::take() {
    const zel::String folder = zel::getUserDirectory();
    zel::Directory::create(folder);
    if (file->take(folder + LockName))
        return true;
    const bool isElsewhere = file->fault() == zel::FileFault::Held;
    zel::log(isElsewhere ? "Nothing can be saved: " + holderText(*this)
                         : "The careers can't be locked in " + folder + ": " +
                               zel::faultText(file->fault()),
             "Database", zel::LogWarning);
    return !isElsewhere;
}

zel::String holderText(const CareerLock& lock) {
    return lock.holder() == 0
               ? zel::String("another program has the career open")
               : "process " + zel::String(std::to_string(lock.holder())) + " has the career open";
}

zel::String heldElsewhereText(const CareerLock& lock) {
    return textOf(wording::HeldElsewhere, {zel::String(std::to_string(lock.holder()))});
}
