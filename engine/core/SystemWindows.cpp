#include <cstdlib>
#include <io.h>
#include <random>
#include <sys/stat.h>
#include <windows.h>

#include "engine/core/LocaleNames.h"
#include "engine/core/System.h"

namespace zel::system {

namespace {

// The simulator's installer is a 32-bit program, and the key path names its view in full.
constexpr REGSAM KeyRead = 0x20019;
constexpr DWORD RegistryBufferSize = 1024;
// A virus scanner or an indexer holds a file for some moments after it was written.
constexpr int32_t MostAttempts = 25;
constexpr DWORD AttemptPause = 20; // milliseconds

/// Microseconds of the fine counter: the plain tick count moves in steps of 16 milliseconds.
int64_t counterTime() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return counter.QuadPart / frequency.QuadPart * 1000000 +
           counter.QuadPart % frequency.QuadPart * 1000000 / frequency.QuadPart;
}

int64_t programStart() {
    static const int64_t start = counterTime();
    return start;
}

DWORD attributes(const String& path) { return GetFileAttributesA(path.c_str()); }

/// Tries again for half a second while somebody else holds the file.
template <typename Operation> bool patiently(const Operation& operation) {
    for (int32_t attempt = 1; !operation(); ++attempt) {
        const DWORD error = GetLastError();
        const bool isHeld =
            error == ERROR_SHARING_VIOLATION || error == ERROR_UNABLE_TO_REMOVE_REPLACED;
        if (!isHeld || attempt == MostAttempts)
            return false;
        Sleep(AttemptPause);
    }
    return true;
}

} // namespace

uint32_t ticks() {
    const int64_t start = programStart();
    return static_cast<uint32_t>((counterTime() - start) / 1000);
}

WallTime wallTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

uint32_t entropy() { return std::random_device{}(); }
void sleepMilliseconds(uint32_t milliseconds) { Sleep(milliseconds); }
String environment(const char* name) { return String(std::getenv(name)); }
void setEnvironment(const char* name, const String& value) { _putenv_s(name, value.c_str()); }
String applicationDataDirectory() { return environment("APPDATA"); }

String executableDirectory() {
    char buffer[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, buffer, sizeof buffer);
    const std::string_view path(buffer, length);
    const size_t end = path.find_last_of("\\/");
    return end == path.npos ? String() : String(path.substr(0, end));
}

String currentDirectory() {
    char buffer[MAX_PATH];
    const DWORD length = GetCurrentDirectoryA(sizeof buffer, buffer);
    return String(std::string_view(buffer, length < sizeof buffer ? length : 0));
}

bool changeDirectory(const String& path) { return SetCurrentDirectoryA(path.c_str()) != 0; }

String absolutePath(const String& path) {
    char buffer[MAX_PATH];
    const DWORD length = GetFullPathNameA(path.c_str(), sizeof buffer, buffer, nullptr);
    return length > 0 && length < sizeof buffer ? String(std::string_view(buffer, length)) : path;
}

String shownText(const String& text) {
    const int length = text.length();
    // No character takes more units than bytes.
    std::wstring wide(static_cast<size_t>(length), L'\0');
    wide.resize(static_cast<size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.c_str(), length, wide.data(), length)));
    std::string shown(wide.size(), '\0');
    constexpr UINT Drawn = 1252;
    shown.resize(static_cast<size_t>(
        WideCharToMultiByte(Drawn, 0, wide.data(), static_cast<int>(wide.size()), shown.data(),
                            static_cast<int>(shown.size()), "?", nullptr)));
    return shown;
}

FILE* openFile(const String& path, const char* mode) {
    FILE* stream = std::fopen(path.c_str(), mode);
    if (stream == nullptr)
        return nullptr;
    struct _stat64 status;
    if (_fstat64(_fileno(stream), &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG)
        return stream;
    std::fclose(stream);
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
    WIN32_FIND_DATAA data;
    std::string folder(path.empty() ? "." : path.view());
    if (folder.back() != '\\' && folder.back() != '/')
        folder += '\\';
    const HANDLE search = FindFirstFileA((folder + '*').c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND; // a drive without entries
    do {
        const std::string name = data.cFileName;
        if (name != "." && name != "..")
            entries.push_back({name, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileA(search, &data) != 0);
    const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
    FindClose(search);
    return isWhole;
}

bool createDirectory(const String& path) {
    return CreateDirectoryA(path.c_str(), nullptr) != 0 || isDirectory(path);
}

bool replaceFile(const String& from, const String& to) {
    return patiently([&] {
        return MoveFileExA(from.c_str(), to.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
}

bool replaceFileKeeping(const String& from, const String& to, const String& backup) {
    if (!fileStatus(to).exists)
        return replaceFile(from, to);
    const bool isReplaced = patiently([&] {
        return ReplaceFileA(to.c_str(), from.c_str(), backup.c_str(),
                            REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
    });
    if (isReplaced)
        return true;
    if (!fileStatus(to).exists) // it failed half way
        replaceFile(backup, to);
    return false;
}

bool removeFile(const String& path) { return DeleteFileA(path.c_str()) != 0; }

String queryRegistryValue(const String& keyPath, const String& valueName) {
    HKEY key;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0, KeyRead, &key) != ERROR_SUCCESS)
        return {};
    char buffer[RegistryBufferSize] = {};
    DWORD size = RegistryBufferSize - 1;
    DWORD type = REG_NONE;
    const LONG result = RegQueryValueExA(key, valueName.c_str(), nullptr, &type,
                                         reinterpret_cast<BYTE*>(buffer), &size);
    RegCloseKey(key);
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    return result == ERROR_SUCCESS && isText ? String(buffer) : String();
}

uint32_t userLocale() {
    const uint32_t chosen = localeIdentifier(environment("LC_ALL"));
    return chosen != 0 ? chosen : GetUserDefaultLCID();
}

bool hasDisplay() { return true; }
bool hasTerminals() { return false; }

bool openBrowser(const String& address) {
    const HINSTANCE result =
        ShellExecuteA(nullptr, "open", address.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32; // up to there they are errors
}

bool isTerminal(FILE* stream) { return _isatty(_fileno(stream)) != 0; }

} // namespace zel::system
