#pragma once

#include <cstdint>

#include "engine/core/String.h"

class LogText;

/// How much of a flight's log is in the simulator's folder.
struct LogExtent {
    int32_t pieces = 0; // that follow one another from the first one on
    int64_t bytes = 0;  // of all pieces

    /// Whether the log has grown since `earlier`: it has more pieces or more bytes.
    bool isBeyond(const LogExtent& earlier) const {
        return pieces > earlier.pieces || bytes > earlier.bytes;
    }
};

/// Measures the log whose first piece has that name. The folder ends in a separator.
LogExtent measureLog(const zel::String& folder, const zel::String& firstPiece);

/// The mission that the log names, without its folder and file ending; empty if it names none.
zel::String loggedMission(const LogText& log);
/// The mission's day that the log names, as Calendar::dateNumber(); 0 if it names none.
int32_t loggedDate(const LogText& log);
