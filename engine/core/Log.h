#pragma once

#include <cstdint>
#include <cstdio>

#include "engine/core/String.h"

namespace zel {

/// Levels of log lines; their marks are "!! ", "!! ", " w ", "   " and "d  ".
enum LogLevel : int32_t {
    LogFatal = 1,   // fatal in kind
    LogError = 2,   // a failure that is survived
    LogWarning = 3, // bad input, put right or left out
    LogInfo = 4,
    LogDebug = 5,
};

/// Writes mark, milliseconds, " [", category, "] ", message and a line end, and flushes, if the
/// level is shown.
void log(const String& message, const String& category, int32_t level);
/// Whether a line of that category and level is shown: ask before building a costly message.
bool isLogged(std::string_view category, int32_t level);

/// Lines up to this level are shown; 3 at the start.
void setLogLevel(int32_t level);
/// A level of its own for one category.
void setCategoryLogLevel(const String& category, int32_t level);
void disableLogging();
/// Where log and console lines go: standard output, unless a program keeps that for its own words.
void setLogStream(FILE* stream);
/// Takes log lines instead, without their line ends; null for the stream again.
void setLogSink(void (*sink)(const String& line));
/// Writes log and console lines to a file as well, which begins anew; the one that was there stays
/// as `.bak`. False if that can't be done, as when another instance of the program writes there.
bool startLogFile(const String& path);

/// A line without mark or category: what screens and scripts say of themselves, for developers. No
/// user sees it. Shown unless switched off.
void console(const String& line);
void setConsoleShown(bool shown);
bool isConsoleShown();

} // namespace zel
