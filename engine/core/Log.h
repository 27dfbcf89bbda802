#pragma once

#include <cstdint>
#include <cstdio>

#include "engine/core/String.h"

namespace zel {

/// Levels of log lines; their prefixes are "!! ", "!! ", " w ", " " and "d ".
enum LogLevel : int32_t {
    LogFatal = 1,   // the program can't go on
    LogError = 2,   // a failure; the program goes on
    LogWarning = 3, // bad input, corrected or ignored
    LogInfo = 4,
    LogDebug = 5,
};

/// Writes prefix, milliseconds, " [", category, "] ", message and a line end, and flushes, if the
/// level is shown.
void log(const String& message, const String& category, int32_t level);
/// Whether a line of that category and level is shown: check before building a costly message.
bool isLogged(std::string_view category, int32_t level);

/// Lines up to this level are shown; initially 3.
void setLogLevel(int32_t level);
/// A separate level for one category.
void setCategoryLogLevel(const String& category, int32_t level);
/// Switches logging off.
void disableLogging();
/// Where log and console lines go: initially standard output.
void setLogStream(FILE* stream);
/// Receives log lines, without line ends, in place of the stream; null for the stream again.
void setLogSink(void (*sink)(const String& line));
/// Also writes log and console lines to a new file; the previous one is kept as `.bak`. False if
/// that is impossible, for instance while another instance of the program writes there.
bool startLogFile(const String& path);

/// A line without prefix or category: reports of screens and scripts for their developers. Shown
/// unless switched off.
void console(const String& line);
void setConsoleShown(bool shown);
bool isConsoleShown();

} // namespace zel
