#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <iconv.h>
#include <random>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/core/LocaleNames.h"
#include "engine/core/System.h"

namespace zel::system {

namespace {

std::string withSlashes(const String& path) {
    std::string result(path.view());
    for (char& character : result)
        if (character == '\\')
            character = '/';
    return result;
}

bool exists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0;
}

/// The entry of `folder` that differs from `name` only in case, the first by its bytes; `name`
/// itself if there is none.
std::string foundNoCase(const std::string& folder, const std::string& name) {
    std::string found;
    DIR* directory = opendir(folder.empty() ? "." : folder.c_str());
    if (directory == nullptr)
        return name;
    while (const dirent* entry = readdir(directory))
        if (equalsNoCase(entry->d_name, name) && (found.empty() || entry->d_name < found))
            found = entry->d_name;
    closedir(directory);
    return found.empty() ? name : found;
}

/// The path as the system knows it. Components that don't exist stay as written.
std::string nativePath(const String& path) {
    std::string wanted = withSlashes(path);
    if (exists(wanted))
        return wanted;
    std::string result = wanted.rfind('/', 0) == 0 ? "/" : "";
    for (size_t start = 0; start < wanted.size();) {
        const size_t end = std::min(wanted.find('/', start), wanted.size());
        const std::string name = wanted.substr(start, end - start);
        start = end + 1;
        if (name.empty())
            continue;
        result += exists(result + name) ? name : foundNoCase(result, name);
        if (start < wanted.size())
            result += '/';
    }
    return result;
}

const std::chrono::steady_clock::time_point& programStart() {
    static const auto start = std::chrono::steady_clock::now();
    return start;
}

} // namespace

uint32_t ticks() {
    const auto& start = programStart();
    const auto passed = std::chrono::steady_clock::now() - start;
    return static_cast<uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(passed).count());
}

WallTime wallTime() {
    const time_t now = time(nullptr);
    tm parts{};
    localtime_r(&now, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
            parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

uint32_t entropy() { return std::random_device{}(); }

void sleepMilliseconds(uint32_t milliseconds) {
    const timespec duration{static_cast<time_t>(milliseconds / 1000),
                            static_cast<long>(milliseconds % 1000) * 1000000};
    nanosleep(&duration, nullptr); // a signal may end it early, as an interrupt should
}

String environment(const char* name) { return String(std::getenv(name)); }

void setEnvironment(const char* name, const String& value) {
    if (value.empty())
        unsetenv(name);
    else
        setenv(name, value.c_str(), 1);
}

String applicationDataDirectory() {
    for (const char* name : {"APPDATA", "XDG_DATA_HOME"})
        if (String value = environment(name); !value.empty())
            return value;
    return environment("HOME") + "/.local/share";
}

String executableDirectory() {
    char buffer[4096];
    const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer);
    if (length <= 0)
        return {};
    const std::string_view path(buffer, static_cast<size_t>(length));
    return String(path.substr(0, path.rfind('/')));
}

String currentDirectory() {
    char buffer[4096];
    return String(getcwd(buffer, sizeof buffer));
}

bool changeDirectory(const String& path) { return chdir(nativePath(path).c_str()) == 0; }

String absolutePath(const String& path) {
    const std::string turned = nativePath(path);
    return !turned.empty() && turned.front() == '/' ? String(turned)
                                                    : currentDirectory() + "/" + turned;
}

String nameFromUtf8(const String& text) { return text; }

std::string pathInUtf8(const String& path) { return std::string(absolutePath(path).view()); }

namespace {

constexpr const char* Utf8 = "UTF-8";
constexpr const char* Drawn = "WINDOWS-1252";

/// "?" replaces what the other coding lacks.
String converted(const String& text, const char* fromCoding, const char* toCoding) {
    const bool isUtf8 = fromCoding == Utf8;
    const size_t growth = isUtf8 ? 1 : 3; // the most bytes that a byte becomes
    const iconv_t conversion = iconv_open(toCoding, fromCoding);
    if (reinterpret_cast<intptr_t>(conversion) == -1) // unknown codings
        return text;
    std::string source(text.view());
    std::string shown(source.size() * growth, '\0');
    char* from = source.data();
    char* to = shown.data();
    size_t left = source.size();
    size_t room = shown.size();
    while (iconv(conversion, &from, &left, &to, &room) == size_t(-1) && left > 0) {
        *to++ = '?';
        --room;
        do { // a character, or one stray byte
            ++from;
            --left;
        } while (left > 0 && isUtf8 && (*from & 0xC0) == 0x80);
    }
    iconv_close(conversion);
    shown.resize(static_cast<size_t>(to - shown.data()));
    return shown;
}

} // namespace

String shownText(const String& text) { return converted(text, Utf8, Drawn); }

String printedText(const String& text) { return converted(text, Drawn, Utf8); }

FILE* openFile(const String& path, const char* mode) {
    const bool reads = mode[0] == 'r';
    // Non-blocking, so that a pipe under the name of a data file can't stop the program here.
    const bool updates = std::string_view(mode).find('+') != std::string_view::npos;
    const int access = updates ? O_RDWR : reads ? O_RDONLY : O_WRONLY;
    const int creation = mode[0] == 'w'   ? O_CREAT | O_TRUNC
                         : mode[0] == 'a' ? O_CREAT | O_APPEND
                                          : 0;
    const int flags = access | creation | O_NONBLOCK | O_CLOEXEC;
    const std::string written = withSlashes(path);
    int file = reads ? open(written.c_str(), flags) : -1;
    if (file < 0)
        file = open(nativePath(path).c_str(), flags, 0666);
    if (file < 0)
        return nullptr;
    struct stat status;
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(file);
        return nullptr;
    }
    return fdopen(file, mode);
}

FileStatus fileStatus(const String& path) {
    struct stat status;
    if (stat(nativePath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return {true, status.st_size,
            int64_t(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec};
}

bool isDirectory(const String& path) {
    struct stat status;
    return stat(nativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool listDirectory(const String& path, std::vector<DirectoryEntry>& entries) {
    entries.clear();
    const std::string folder = path.empty() ? "." : nativePath(path);
    DIR* directory = opendir(folder.c_str());
    if (directory == nullptr)
        return false;
    while (const dirent* entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool isFolder = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN || entry->d_type == DT_LNK)
            isFolder = isDirectory(String(folder) + "/" + name);
        entries.push_back({name, isFolder});
    }
    closedir(directory);
    return true;
}

bool createDirectory(const String& path) {
    const std::string folder = nativePath(path);
    return mkdir(folder.c_str(), 0777) == 0 || isDirectory(path);
}

bool replaceFile(const String& from, const String& to) {
    return std::rename(nativePath(from).c_str(), nativePath(to).c_str()) == 0;
}

bool replaceFileKeeping(const String& from, const String& to, const String& backup) {
    const std::string present = nativePath(to);
    if (!exists(present))
        return replaceFile(from, to);
    if (!fileStatus(to).exists)
        return false; // a folder is never moved
    // The old backup is removed only when the new one exists. A file system without links renames.
    const std::string kept = nativePath(backup);
    const std::string draft = kept + ".tmp";
    unlink(draft.c_str());
    const bool linked = link(present.c_str(), draft.c_str()) == 0;
    if (std::rename(linked ? draft.c_str() : present.c_str(), kept.c_str()) != 0) {
        unlink(draft.c_str());
        return false;
    }
    if (replaceFile(from, to))
        return true;
    if (!exists(present))
        std::rename(kept.c_str(), present.c_str());
    return false;
}

bool removeFile(const String& path) { return unlink(nativePath(path).c_str()) == 0; }

String queryRegistryValue(const String& /*keyPath*/, const String& /*valueName*/) { return {}; }

uint32_t userLocale() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const String value = environment(variable);
        if (!value.empty())
            return localeIdentifier(value);
    }
    return 0;
}

bool hasDisplay() { return !environment("DISPLAY").empty(); }
bool hasTerminals() { return true; }

Extent roomForWindow(Extent desktop) {
    if (environment("XDG_CURRENT_DESKTOP").empty())
        return desktop;                  // a bare display has no frames and bars
    constexpr int32_t FrameAndBars = 96; // rows
    return {desktop.width, std::max(0, desktop.height - FrameAndBars)};
}

// Without a shell, so that nothing in an address is executed.
bool openBrowser(const String& address) {
    static pid_t last = 0; // the helper ends by itself; this only reaps it
    if (last > 0)
        waitpid(last, nullptr, WNOHANG);
    std::string program = "xdg-open";
    std::string argument(address.view());
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    return posix_spawnp(&last, program.c_str(), nullptr, nullptr, arguments, environ) == 0;
}

bool isTerminal(FILE* stream) { return isatty(fileno(stream)) != 0; }

} // namespace zel::system
