#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif
#include <string>

/// Holds a file, or on Windows a folder, for as long as it lives, so that nobody can open it, as
/// virus scanners and other programs do for moments. Its status can be queried meanwhile.
class HeldFile {
public:
    explicit HeldFile(const std::string& path) {
#ifdef _WIN32
        handle = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS, nullptr);
#else
        // A lease refuses non-blocking opens; permissions wouldn't refuse them to root.
        std::signal(SIGIO, SIG_IGN); // the notice of such an opening
        file = open(path.c_str(), O_RDWR | O_CLOEXEC);
        isLeased = file >= 0 && fcntl(file, F_SETLEASE, F_WRLCK) == 0;
#endif
    }
    ~HeldFile() { release(); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    /// False where the file system can't.
    bool isHeld() const {
#ifdef _WIN32
        return handle != INVALID_HANDLE_VALUE;
#else
        return isLeased;
#endif
    }
    void release() {
#ifdef _WIN32
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
        handle = INVALID_HANDLE_VALUE;
#else
        if (file >= 0)
            close(file);
        file = -1;
        isLeased = false;
#endif
    }

private:
#ifdef _WIN32
    HANDLE handle = INVALID_HANDLE_VALUE;
#else
    int file = -1;
    bool isLeased = false;
#endif
};
