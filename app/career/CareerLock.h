#pragma once

#include <cstdint>
#include <memory>

#include "engine/core/LockFile.h"
#include "engine/core/String.h"

/// Keeps two programs from saving the careers of one player's folder. The program that loads or
/// begins a career first has them until it ends; a second one reads them and saves nothing.
///
/// Made by the application or the session that owns the career, as its Database::lock.
class CareerLock {
public:
    /// Call it before every change to the careers. False if another program has the lock, which is
    /// logged. A folder that can't be locked for another reason counts as free.
    bool take();
    /// That program's process id; 0 if it is unknown.
    uint32_t holder() const { return file->holder(); }

private:
    static std::shared_ptr<zel::LockFile> ofThisProcess();

    std::shared_ptr<zel::LockFile> file = ofThisProcess();
};

/// What the office says then, in the language in use.
zel::String heldElsewhereText(const CareerLock& lock);
/// Why nothing can be saved: "process 1234 has the career open", for the end of an English
/// sentence.
zel::String holderText(const CareerLock& lock);
