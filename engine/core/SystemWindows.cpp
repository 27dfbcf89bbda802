#include "engine/core/SystemWindows.h"

#include <algorithm>
#include <cstdlib>
#include <io.h>
#include <random>
#include <sys/stat.h>
#include <windows.h>

#include "engine/core/LocaleNames.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/TextEncoding.h"

namespace zel::system {

namespace {

// The simulator's installer is a 32-bit program; the key path names its view in full.
constexpr REGSAM KeyRead = 0x20019;
constexpr DWORD RegistryBufferSize = 1024;

/// Microseconds of the high-resolution counter: the plain tick count moves in steps of 16 ms.
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

WallTime partsOf(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

} // namespace

std::wstring widened(std::string_view text, UINT page, DWORD flags) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // no character takes more units than bytes
    wide.resize(static_cast<size_t>(
        MultiByteToWideChar(page, flags, text.data(), length, wide.data(), length)));
    return wide;
}

std::string narrowed(const std::wstring& wide, UINT page, bool& isWhole) {
    const bool isUtf8 =
        page == CP_UTF8 || (page == CP_ACP && GetACP() == CP_UTF8); // has every character
    constexpr size_t MostBytes = 4;                                 // of a character
    std::string text(wide.size() * MostBytes, '\0');
    BOOL lacking = FALSE;
    text.resize(static_cast<size_t>(WideCharToMultiByte(
        page, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
        text.data(), static_cast<int>(text.size()), isUtf8 ? nullptr : "?",
        isUtf8 ? nullptr : &lacking)));
    isWhole = lacking == FALSE;
    return text;
}

namespace {

/// The text of a Windows function that fills a buffer. It returns the text's length or, if that
/// doesn't fit, the buffer's size or the size that it needs.
template <typename Query> std::wstring textOf(const Query& query) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = query(text.data(), MAX_PATH);
    while (length >= text.size()) {
        text.resize(2 * size_t(length));
        length = query(text.data(), static_cast<DWORD>(text.size()));
    }
    text.resize(length);
    return text;
}

/// A path in the code page, by its short name if need be.
std::string named(const std::wstring& path, bool& isWhole) {
    std::string name = narrowed(path, CP_ACP, isWhole);
    if (isWhole)
        return name;
    const std::wstring shortPath = textOf(
        [&](wchar_t* text, DWORD size) { return GetShortPathNameW(path.c_str(), text, size); });
    bool isShortWhole = false;
    std::string shortName = narrowed(shortPath, CP_ACP, isShortWhole);
    isWhole = isShortWhole && !shortName.empty();
    return isWhole ? shortName : name;
}

String named(const std::wstring& path) {
    bool isWhole = false;
    return named(path, isWhole);
}

String printed(const std::wstring& wide) {
    bool isWhole = false;
    const UINT console = GetConsoleOutputCP();
    return narrowed(wide, console != 0 ? console : CP_ACP, isWhole);
}

std::wstring variable(const wchar_t* name) {
    return textOf(
        [&](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(name, text, size); });
}

} // namespace

uint32_t ticks() {
    const int64_t start = programStart();
    return static_cast<uint32_t>((counterTime() - start) / 1000);
}

WallTime wallTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return partsOf(now);
}

WallTime wallTimeOf(const FileStatus& file) {
    const auto changed = static_cast<uint64_t>(file.changed);
    const FILETIME time{static_cast<DWORD>(changed & 0xFFFFFFFF),
                        static_cast<DWORD>(changed >> 32)};
    SYSTEMTIME universal;
    SYSTEMTIME local;
    if (!file.exists || FileTimeToSystemTime(&time, &universal) == 0 ||
        SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) == 0)
        return {};
    return partsOf(local);
}

int64_t fileTime() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return static_cast<int64_t>(uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime);
}

uint32_t entropy() { return std::random_device{}(); }
void sleepMilliseconds(uint32_t milliseconds) { Sleep(milliseconds); }
String environment(const char* name) { return String(std::getenv(name)); }
void setEnvironment(const char* name, const String& value) { _putenv_s(name, value.c_str()); }

String applicationDataDirectory() {
    bool isWhole = false;
    String name = named(variable(L"APPDATA"), isWhole);
    static bool isTold = false;
    if (!isWhole && !isTold) {
        isTold = true;
        log("The folder " + name + " has no name in this system's code page: nothing can be kept",
            "System", LogError);
    }
    return name;
}

String homeDirectory() { return named(variable(L"USERPROFILE")); }

String applicationDataProblem() {
    const String folder = environment("APPDATA");
    if (folder.empty())
        return "APPDATA is not set";
    const bool hasDrive = folder.length() > 2 && folder.view()[1] == ':';
    const bool hasServer = folder.view().substr(0, 2) == "\\\\";
    return hasDrive || hasServer ? String() : "APPDATA is not an absolute path: " + folder;
}

String executableDirectory() {
    const std::wstring path =
        textOf([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
    const size_t end = path.find_last_of(L"\\/");
    return end == path.npos ? String() : named(path.substr(0, end));
}

String currentDirectory() {
    return named(
        textOf([](wchar_t* text, DWORD size) { return GetCurrentDirectoryW(size, text); }));
}

bool changeDirectory(const String& path) { return SetCurrentDirectoryA(path.c_str()) != 0; }

String absolutePath(const String& path) {
    const std::wstring wide = widened(path, CP_ACP);
    const std::wstring full = textOf([&](wchar_t* text, DWORD size) {
        return GetFullPathNameW(wide.c_str(), size, text, nullptr);
    });
    return full.empty() ? path : named(full);
}

String nameFromUtf8(const String& text) {
    const auto isPlain = [](char character) { return static_cast<unsigned char>(character) < 128; };
    const std::string_view bytes = text;
    if (std::all_of(bytes.begin(), bytes.end(), isPlain))
        return text;
    const std::wstring wide = widened(bytes, CP_UTF8, MB_ERR_INVALID_CHARS);
    return wide.empty() ? text : named(wide);
}

std::string pathInUtf8(const String& path) {
    bool isWhole = false;
    return narrowed(widened(absolutePath(path), CP_ACP), CP_UTF8, isWhole);
}

String shownText(const String& text) {
    bool isWhole = false;
    return fromUtf8(narrowed(widened(text, CP_ACP), CP_UTF8, isWhole));
}

String printedText(const String& text) { return printed(widened(utf8Of(text), CP_UTF8)); }

String printedName(const String& name) { return printed(widened(name, CP_ACP)); }

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

bool hasRegistry() { return true; }

uint32_t userLocale() {
    const uint32_t chosen = localeIdentifier(environment("LC_ALL"));
    return chosen != 0 ? chosen : GetUserDefaultLCID();
}

bool hasDisplay() { return true; }
bool hasTerminals() { return false; }

// Standard streams need nothing: handles have no numbers here that others could get.
void beginProgram() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

Extent roomForWindow(Extent desktop) {
    RECT clear; // of the bars
    RECT frame{};
    if (SystemParametersInfoA(SPI_GETWORKAREA, 0, &clear, 0) == 0 ||
        AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE) == 0)
        return desktop;
    // A centred window loses a bar's size at both edges.
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    const LONG bars[] = {std::max(clear.left, width - clear.right),
                         std::max(clear.top, height - clear.bottom)};
    return {static_cast<int32_t>(width - 2 * bars[0] - (frame.right - frame.left)),
            static_cast<int32_t>(height - 2 * bars[1] - (frame.bottom - frame.top))};
}

bool openBrowser(const String& address) {
    const HINSTANCE result =
        ShellExecuteA(nullptr, "open", address.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32; // smaller values are errors
}

bool isTerminal(FILE* stream) { return _isatty(_fileno(stream)) != 0; }

} // namespace zel::system
