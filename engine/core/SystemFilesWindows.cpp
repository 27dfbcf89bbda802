#include <algorithm>
#include <io.h>
#include <string>
#include <sys/stat.h>
#include <windows.h>

#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemWindows.h"

namespace zel::system {

namespace {

// Virus scanners and indexers hold a file for some moments after it was written. Reading waits
// less, because the player waits too.
constexpr int32_t AttemptsToWrite = 25;
constexpr int32_t AttemptsToRead = 5;
constexpr DWORD AttemptPause = 20; // milliseconds
DWORD attributes(const String& path) { return GetFileAttributesA(path.c_str()); }

/// Whether the last error may pass because another program holds the file. Replacing an open file
/// gives "access denied", but so does what is never allowed: a folder, a read-only file.
bool isHeld(const String& path, DWORD error) {
    constexpr DWORD Lasting = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    switch (error) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT:
    case ERROR_USER_MAPPED_FILE:
        return true;
    case ERROR_ACCESS_DENIED: {
        const DWORD found = attributes(path);
        return found != INVALID_FILE_ATTRIBUTES && (found & Lasting) == 0;
    }
    default:
        return false;
    }
}

/// Retries while another program holds the file at that path. Where a folder has the name, Windows
/// says "access denied"; the error becomes ERROR_DIRECTORY, so that nobody looks for a permission.
template <typename Operation>
bool patiently(const String& path, const Operation& operation, int32_t attempts = AttemptsToWrite) {
    for (int32_t attempt = 1; !operation(); ++attempt) {
        const DWORD error = GetLastError(); // querying the file would change it
        if (attempt == attempts || !isHeld(path, error)) {
            SetLastError(error == ERROR_ACCESS_DENIED && isDirectory(path) ? ERROR_DIRECTORY
                                                                           : error);
            return false;
        }
        Sleep(AttemptPause);
    }
    return true;
}

bool copyFile(const String& from, const String& to) {
    return patiently(to, [&] { return CopyFileA(from.c_str(), to.c_str(), FALSE) != 0; });
}

/// Whether ReplaceFile failed because the file system doesn't support it, or because the backup is
/// on another drive: then the file's name is a link.
bool isUnsupported(DWORD error) {
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION ||
           error == ERROR_INVALID_PARAMETER || error == ERROR_CALL_NOT_IMPLEMENTED ||
           error == ERROR_NOT_SAME_DEVICE || error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

/// Whether the path is another name of a file or folder elsewhere. Files that a cloud or a
/// deduplicating disk keeps have reparse points too, and are where they seem to be.
bool isOtherName(const String& path) {
    WIN32_FIND_DATAA data;
    const HANDLE search = FindFirstFileA(path.c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(data.dwReserved0);
}

/// The entry's name in the code page; its short name if need be.
std::string entryName(const WIN32_FIND_DATAW& data) {
    bool isWhole = false;
    std::string name = narrowed(data.cFileName, CP_ACP, isWhole);
    if (isWhole || data.cAlternateFileName[0] == L'\0')
        return name;
    std::string shortName = narrowed(data.cAlternateFileName, CP_ACP, isWhole);
    return isWhole ? shortName : name;
}

/// Waits until a file that was replaced is on the disk under its new name.
bool flushFile(const String& path) {
    HANDLE file = INVALID_HANDLE_VALUE;
    const bool isOpen = patiently(path, [&] {
        file = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        return file != INVALID_HANDLE_VALUE;
    });
    if (!isOpen)
        return false;
    const bool isFlushed = FlushFileBuffers(file) != 0;
    const DWORD error = GetLastError();
    CloseHandle(file);
    SetLastError(error);
    return isFlushed;
}

/// Whether a program has a file open in the folder or below it. Such a folder can't be renamed, and
/// Windows calls that "access denied", as it calls a lack of permission.
bool hasOpenFile(const String& folder) {
    std::vector<DirectoryEntry> entries;
    listDirectory(folder, entries);
    return std::any_of(entries.begin(), entries.end(), [&](const DirectoryEntry& entry) {
        const String path = folder + "\\" + entry.name;
        if (entry.isDirectory)
            return !isOtherName(path) && hasOpenFile(path);
        const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            return GetLastError() == ERROR_SHARING_VIOLATION;
        CloseHandle(file);
        return false;
    });
}

} // namespace

FileFault lastFault() {
    switch (GetLastError()) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return FileFault::NoSpace;
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return FileFault::NoPermission;
    case ERROR_WRITE_PROTECT:
        return FileFault::ReadOnly;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return FileFault::Missing;
    case ERROR_DIRECTORY:
    case ERROR_BAD_FILE_TYPE:
        return FileFault::NotAFile;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_LOCK_FAILED:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT_2:
    case ERROR_USER_MAPPED_FILE:
        return FileFault::Held;
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_NOT_READY:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
        return FileFault::DiskError;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
        return FileFault::NameTooLong;
    case ERROR_FILE_TOO_LARGE:
        return FileFault::TooLarge;
    case ERROR_TOO_MANY_OPEN_FILES:
        return FileFault::TooManyOpen;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return FileFault::Exists;
    default:
        return FileFault::Other;
    }
}

FILE* openFile(const String& path, const char* mode) {
    FILE* stream = nullptr;
    const bool reads = std::string_view(mode).find_first_of("wa+") == std::string_view::npos;
    const auto open = [&] {
        _doserrno = 0; // fopen may fail before it calls the system
        stream = std::fopen(path.c_str(), mode);
        if (stream == nullptr)
            SetLastError(_doserrno);
        return stream != nullptr;
    };
    if (!patiently(path, open, reads ? AttemptsToRead : AttemptsToWrite))
        return nullptr;
    struct _stat64 status;
    if (_fstat64(_fileno(stream), &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG)
        return stream;
    std::fclose(stream);
    SetLastError(ERROR_DIRECTORY);
    return nullptr;
}

FileStatus fileStatus(const String& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0 ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return {};
    return {true, (int64_t(data.nFileSizeHigh) << 32) + data.nFileSizeLow,
            (int64_t(data.ftLastWriteTime.dwHighDateTime) << 32) +
                data.ftLastWriteTime.dwLowDateTime};
}

bool isDirectory(const String& path) {
    const DWORD found = attributes(path);
    return found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool listDirectory(const String& path, std::vector<DirectoryEntry>& entries) {
    entries.clear();
    WIN32_FIND_DATAW data;
    std::wstring folder = widened(path.empty() ? "." : path.view(), CP_ACP);
    if (folder.back() != L'\\' && folder.back() != L'/')
        folder += L'\\';
    const HANDLE search = FindFirstFileW((folder + L'*').c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND; // a drive without entries
    do {
        const std::string name = entryName(data);
        if (name != "." && name != "..")
            entries.push_back({name, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(search, &data) != 0);
    const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
    FindClose(search);
    return isWhole;
}

bool createDirectory(const String& path) {
    return CreateDirectoryA(path.c_str(), nullptr) != 0 || isDirectory(path);
}

bool replaceFile(const String& from, const String& to) {
    return patiently(to, [&] {
        return MoveFileExA(from.c_str(), to.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
}

bool replaceFileKeeping(const String& from, const String& to, const String& backup) {
    if (!fileStatus(to).exists)
        return replaceFile(from, to);
    const bool isReplaced = patiently(to, [&] {
        return ReplaceFileA(to.c_str(), from.c_str(), backup.c_str(),
                            REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
    });
    if (isReplaced) {
        flushFile(to);
        return true;
    }
    if (isUnsupported(GetLastError()))
        return copyFile(to, backup) && flushFile(backup) && replaceFile(from, to);
    if (!fileStatus(to).exists) // it failed half way
        replaceFile(backup, to);
    return false;
}

bool keepFileAs(const String& file, const String& name) {
    DeleteFileA(name.c_str());
    return CreateHardLinkA(name.c_str(), file.c_str(), nullptr) != 0 ||
           (copyFile(file, name) && flushFile(name)) || replaceFile(file, name);
}

bool removeFolder(const String& path) { return RemoveDirectoryA(path.c_str()) != 0; }

bool renameFolder(const String& from, const String& to) {
    for (int32_t attempt = 1;; ++attempt) {
        if (MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0)
            return true;
        const DWORD error = GetLastError();
        const bool isDenied = error == ERROR_ACCESS_DENIED;
        if (attempt == AttemptsToWrite || (!isDenied && error != ERROR_SHARING_VIOLATION)) {
            SetLastError(isDenied && hasOpenFile(from) ? ERROR_SHARING_VIOLATION : error);
            return false;
        }
        Sleep(AttemptPause);
    }
}

bool removeFile(const String& path) { return DeleteFileA(path.c_str()) != 0; }

String linkTarget(const String& path) {
    if (!isOtherName(path))
        return path;
    const HANDLE file = CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return path;
    char name[MAX_PATH + 8];
    const DWORD length = GetFinalPathNameByHandleA(file, name, sizeof name, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    if (length == 0 || length >= sizeof name)
        return path;
    const std::string_view target(name, length);
    constexpr std::string_view Prefix = "\\\\?\\";
    constexpr std::string_view Network = "\\\\?\\UNC\\";
    if (target.substr(0, Network.size()) == Network)
        return "\\\\" + String(target.substr(Network.size()));
    return target.substr(0, Prefix.size()) == Prefix ? target.substr(Prefix.size()) : target;
}

// Windows offers nothing beyond MOVEFILE_WRITE_THROUGH and the flush of a replaced file.
bool syncFolder(const String& /*path*/) { return true; }

} // namespace zel::system
