// What belongs to this process alone: drafts of files, and locks.
#include <algorithm>
#include <utility>
#include <windows.h>

#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"

namespace zel::system {

namespace {

/// A handle as a number; -1 for none, as the system has it.
intptr_t numberOf(HANDLE handle) { return reinterpret_cast<intptr_t>(handle); }
HANDLE handleOf(intptr_t number) { return reinterpret_cast<HANDLE>(number); }

bool writeAll(HANDLE file, std::string_view bytes) {
    constexpr size_t MostAtOnce = 1 << 30;
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), MostAtOnce));
        if (WriteFile(file, bytes.data(), wanted, &count, nullptr) == 0 || count == 0)
            return false;
        bytes.remove_prefix(count);
    }
    return true;
}

} // namespace

uint32_t processId() { return GetCurrentProcessId(); }

bool isProcessRunning(uint32_t id) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (process == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED;
    DWORD status = 0;
    const bool isRunning = GetExitCodeProcess(process, &status) != 0 && status == STILL_ACTIVE;
    CloseHandle(process);
    return isRunning;
}

bool NewFile::create(const String& path) {
    handle = numberOf(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    return handle != -1;
}

bool NewFile::copyPermissions(const String& /*from*/) { return true; }

bool NewFile::write(std::string_view bytes) { return writeAll(handleOf(handle), bytes); }

bool NewFile::sync() { return FlushFileBuffers(handleOf(handle)) != 0; }

bool NewFile::close() {
    return handle == -1 || CloseHandle(handleOf(std::exchange(handle, -1))) != 0;
}

// Windows lets nobody else open the file for writing. The locked byte is for programs of other
// systems, under Wine.
bool FileLock::take(const String& path, std::string_view text) {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_ACCESS_DENIED && fileStatus(path).exists)
            SetLastError(ERROR_SHARING_VIOLATION); // it is being removed
        return false;
    }
    OVERLAPPED place{};
    place.Offset = LockedByte;
    const DWORD lockFlags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    if (LockFileEx(file, lockFlags, 0, 1, 0, &place) == 0 &&
        GetLastError() == ERROR_LOCK_VIOLATION) {
        CloseHandle(file);
        SetLastError(ERROR_LOCK_VIOLATION);
        return false;
    }
    SetEndOfFile(file);
    writeAll(file, text); // without the text it is locked all the same
    FlushFileBuffers(file);
    handle = numberOf(file);
    name = path;
    return true;
}

void FileLock::release() {
    if (!isHeld())
        return;
    DeleteFileA(name.c_str());
    CloseHandle(handleOf(std::exchange(handle, -1)));
}

// Nobody can make another file of that name while this one is open.
bool FileLock::isInPlace() const { return isHeld(); }

} // namespace zel::system
