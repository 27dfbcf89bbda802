#pragma once

#include <cstdint>

#include "engine/core/String.h"

namespace zel {

/// The line of a data file that is being read, for as long as the object lives: a log sink
/// (setLogSink) asks it what a log line is about. Places nest; the innermost counts.
class LogPlace {
public:
    /// line as an editor counts, from 1. The file's name must outlive the place.
    LogPlace(const String& file, int32_t line) : file(file), line(line), outer(innermost) {
        innermost = this;
    }
    ~LogPlace() { innermost = outer; }
    LogPlace(const LogPlace&) = delete;
    LogPlace& operator=(const LogPlace&) = delete;

    const String& getFile() const { return file; }
    int32_t getLine() const { return line; }
    /// "FILE:LINE: ", for messages that name the place themselves.
    String prefix() const { return file + ":" + line + ": "; }
    /// Null while no file is being read.
    static const LogPlace* current() { return innermost; }

private:
    const String& file;
    int32_t line;
    const LogPlace* outer;
    inline static const LogPlace* innermost = nullptr;
};

} // namespace zel
