#include "engine/core/Log.h"

#include <map>
#include <memory>
#include <string>

#include "engine/core/Clock.h"
#include "engine/core/Printable.h"
#include "engine/core/System.h"

namespace zel {

namespace {

struct LoggerState {
    int32_t level = LogWarning;
    std::map<std::string, int32_t, std::less<>> categoryLevels;
    bool enabled = true;
    bool consoleShown = true;
    FILE* stream = stdout;
    void (*sink)(const String& line) = nullptr;
    std::unique_ptr<FILE, int (*)(FILE*)> file{nullptr, std::fclose};
};

LoggerState& logState() {
    static LoggerState state;
    return state;
}

const char* prefixOf(int32_t level) {
    switch (level) {
    case LogFatal:
    case LogError:
        return "!! ";
    case LogWarning:
        return " w ";
    case LogDebug:
        return "d  ";
    default:
        return "   ";
    }
}

void writeLine(FILE* stream, const String& line) {
    std::fprintf(stream, "%s\n", printable(line).c_str());
    std::fflush(stream); // the last line before a crash matters most
}

} // namespace

void log(const String& message, const String& category, int32_t level) {
    if (!isLogged(category, level))
        return;
    const String line =
        String(prefixOf(level)) + std::to_string(ticks()) + " [" + category + "] " + message;
    if (logState().file != nullptr)
        writeLine(logState().file.get(), line);
    if (logState().sink != nullptr)
        logState().sink(line);
    else
        writeLine(logState().stream, line);
}

bool isLogged(std::string_view category, int32_t level) {
    const LoggerState& state = logState();
    if (!state.enabled)
        return false;
    if (state.categoryLevels.empty())
        return level <= state.level;
    const auto own = state.categoryLevels.find(category);
    return level <= (own != state.categoryLevels.end() ? own->second : state.level);
}

void setLogLevel(int32_t level) { logState().level = level; }

void setCategoryLogLevel(const String& category, int32_t level) {
    logState().categoryLevels[category.c_str()] = level;
}

void disableLogging() { logState().enabled = false; }
void setLogStream(FILE* stream) { logState().stream = stream; }
void setLogSink(void (*sink)(const String& line)) { logState().sink = sink; }

bool startLogFile(const String& path) {
    logState().file.reset();
    if (system::fileStatus(path).exists && !system::replaceFile(path, path + ".bak"))
        return false;
    logState().file.reset(system::openFile(path, "wb"));
    return logState().file != nullptr;
}

void console(const String& line) {
    if (!logState().consoleShown)
        return;
    if (logState().file != nullptr)
        writeLine(logState().file.get(), line);
    writeLine(logState().stream, line);
}

void setConsoleShown(bool shown) { logState().consoleShown = shown; }
bool isConsoleShown() { return logState().consoleShown; }

} // namespace zel
