#pragma once

#include <cstdint>
#include <optional>

#include "app/career/CareerEvents.h"
#include "engine/core/String.h"

class SqliteFile;

/// One flight as the record has it.
struct RecordedFlight {
    int32_t number = 0; // from 1
    int32_t date = 0;   // yyyymmdd
    int32_t pilot = -1; // index of the career
    int32_t squadron = -1;
    zel::String base; // in English
    bool onChannelMap = false;
    /// The reports are as recorded: without their lists of hits and the planned figures.
    FlownMission mission;
};

/// The flight of that number; the last one for 0. Nothing if there is none, and on error, in which
/// case the file has failed.
std::optional<RecordedFlight> readFlight(SqliteFile& record, int32_t number = 0);

/// Whether an event of that kind is the end of its target.
bool isEnd(FlightEventKind kind);
/// The town nearest to where the log reports that record's end, by the first such event near a
/// town. place: index of the report. Null if the log doesn't say where, or if it was far from any
/// town.
const char* townOfEnd(const RecordedFlight& flight, int32_t place);
