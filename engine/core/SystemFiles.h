#pragma once

#include <cstdint>
#include <string_view>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// The part of the seam between the systems that keeps files safe: new files, syncs, locks. Paths
/// are as in System.h.
namespace zel::system {

/// Why applicationDataDirectory() names no folder that files can be kept in: a variable of the
/// environment isn't set, or isn't an absolute path. An English sentence without a full stop; empty
/// if all is well.
String applicationDataProblem();

/// Where a lock file is locked: far beyond its text, since on Windows a locked byte can't be read.
constexpr int32_t LockedByte = 0x40000000;

/// Why the operation here or in System.h that failed last did so. Ask right after it.
FileFault lastFault();

/// The file that a path refers to: where a symbolic link leads, through further links if need be;
/// the path itself for anything else. The file need not exist.
String linkTarget(const String& path);

/// Gives a file a second name in place of what has that name. A file system without second names
/// gets a copy or, if that can't be made, the file is renamed.
bool keepFileAs(const String& file, const String& name);
/// Removes an empty folder. On error: false.
bool removeFolder(const String& path);
/// Renames a folder with all that is in it. Nothing may have the new name. While another program
/// holds one of its files, it is retried for half a second; then lastFault() is Held.
bool renameFolder(const String& from, const String& to);

/// Waits until the folder's entries are on the disk: new names, renamed and removed ones. True
/// where the system has no such operation. On error: false.
bool syncFolder(const String& path);

uint32_t processId(); // of this process
/// Whether a process has that id, whoever runs it.
bool isProcessRunning(uint32_t id);

/// A file that didn't exist before, for writing alone.
class NewFile {
public:
    NewFile() = default;
    ~NewFile() { close(); }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Creates and opens it. False if anything has that name, a link included.
    bool create(const String& path);
    /// Gives it the permissions of another file, if there is one, and its owner where that is
    /// allowed. Windows does so when the other file is replaced.
    bool copyPermissions(const String& from);
    bool write(std::string_view bytes);
    /// Waits until its content is on the disk.
    bool sync();
    bool close();

private:
    intptr_t handle = -1; // of the system
};

/// A lock that ends with the process, however that ends. It is an open file with a text for those
/// who find it locked.
class FileLock {
public:
    FileLock() = default;
    ~FileLock() { release(); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Makes or takes over the file and writes the text into it. False on error; lastFault() is
    /// Held if another process, or another FileLock of this one, has it. REQUIRES: not held.
    bool take(const String& path, std::string_view text);
    /// Removes the file, if it is still this one.
    void release();
    /// Whether the file is there under its name: once it is removed, another program can create
    /// its own.
    bool isInPlace() const;
    bool isHeld() const { return handle != -1; }

private:
    intptr_t handle = -1;
    String name;
};

} // namespace zel::system
