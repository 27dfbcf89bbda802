// The second header needs the first.
// clang-format off
#include <windows.h>
#include <tlhelp32.h>
// clang-format on

#include <cstdio>

#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPlaces.h"

namespace zel::system {

namespace {

/// "A:\" to "Z:\", those that exist.
std::vector<String> allDrives() {
    std::vector<String> drives;
    const DWORD present = GetLogicalDrives();
    for (int32_t i = 0; i < 26; ++i)
        if ((present >> i & 1) != 0)
            drives.push_back(String(static_cast<char>('A' + i)) + ":\\");
    return drives;
}

} // namespace

std::vector<String> driveRoots() { return allDrives(); }

std::vector<String> localDrives() {
    std::vector<String> drives;
    for (const String& drive : allDrives()) {
        const UINT type = GetDriveTypeA(drive.c_str());
        const bool isFloppy = drive.view().front() < 'C';
        if (type == DRIVE_FIXED || (type == DRIVE_REMOVABLE && !isFloppy))
            drives.push_back(drive);
    }
    return drives;
}

String canonicalPath(const String& path) {
    const HANDLE file =
        CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    char name[MAX_PATH + 8];
    const DWORD length = GetFinalPathNameByHandleA(file, name, sizeof name, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    const bool isKnown = length > 0 && length < sizeof name;
    return isKnown ? String(std::string_view(name, length)) : absolutePath(path).toLower();
}

FileFault writeFault(const String& path) {
    const DWORD found = GetFileAttributesA(path.c_str());
    if (found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_READONLY) != 0)
        return FileFault::ReadOnly;
    FILE* const file = openFile(path, "r+b");
    if (file == nullptr)
        return lastFault();
    std::fclose(file);
    return FileFault::None;
}

bool isProgramRunning(std::string_view name) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE)
        return false;
    PROCESSENTRY32 process{};
    process.dwSize = sizeof process;
    bool isFound = false;
    for (BOOL more = Process32First(snapshot, &process); more != 0 && !isFound;
         more = Process32Next(snapshot, &process))
        isFound = equalsNoCase(process.szExeFile, name);
    CloseHandle(snapshot);
    return isFound;
}

bool hasOpenGl() {
    const HMODULE library = LoadLibraryExA("opengl32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr)
        return false;
    FreeLibrary(library);
    return true;
}

} // namespace zel::system
