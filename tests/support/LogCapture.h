#pragma once

#include <cstdio>
#include <string>

#include "engine/core/Log.h"

/// Catches what is logged and written to the console for as long as it lives.
class LogCapture {
public:
    /// Lines up to this level are caught, whatever level was set before.
    explicit LogCapture(int32_t level = zel::LogWarning);
    ~LogCapture(); // back to standard output and the level of the program's start
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// All lines so far.
    std::string text() const;
    bool holds(const std::string& part) const { return text().find(part) != std::string::npos; }
    /// How many lines hold the part.
    int32_t linesWith(const std::string& part) const;

private:
    FILE* stream;
};
