#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/core/LocaleNames.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/TextEncoding.h"

namespace zel::system {

namespace {

constexpr int64_t Nanoseconds = 1000000000; // a second; FileStatus::changed counts in these

WallTime localTime(time_t time) {
    tm parts{};
    localtime_r(&time, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
            parts.tm_hour,        parts.tm_min,     parts.tm_sec};
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

WallTime wallTime() { return localTime(time(nullptr)); }

WallTime wallTimeOf(const FileStatus& file) {
    return file.exists ? localTime(static_cast<time_t>(file.changed / Nanoseconds)) : WallTime{};
}

int64_t fileTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec * Nanoseconds + now.tv_nsec;
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
    return homeDirectory() + "/.local/share";
}

String homeDirectory() { return environment("HOME"); }

String applicationDataProblem() {
    const char* const name = !environment("APPDATA").empty()         ? "APPDATA"
                             : !environment("XDG_DATA_HOME").empty() ? "XDG_DATA_HOME"
                                                                     : "HOME";
    const String folder = environment(name);
    if (folder.empty())
        return "Neither XDG_DATA_HOME nor HOME is set";
    return folder.view().front() == '/' ? String()
                                        : String(name) + " is not an absolute path: " + folder;
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

String nameFromUtf8(const String& text) { return text; }

std::string pathInUtf8(const String& path) { return std::string(absolutePath(path).view()); }

String shownText(const String& text) { return fromUtf8(text); }

String printedText(const String& text) { return utf8Of(text); }

String queryRegistryValue(const String& /*keyPath*/, const String& /*valueName*/) { return {}; }
bool hasRegistry() { return false; }

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

void beginProgram() {
    for (int file = 0; file <= STDERR_FILENO; ++file)
        if (fcntl(file, F_GETFD) < 0) // the lowest number that is free is this one
            static_cast<void>(open("/dev/null", file == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

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
