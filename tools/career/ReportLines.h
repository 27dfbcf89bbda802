#pragma once

#include <cstdint>
#include <vector>

#include "app/career/PilotReport.h"
#include "engine/core/String.h"

class Database;
class Flight;
class SqliteFile;

// What the commands report and why print.

/// The combat report's two columns, in the language in use.
std::vector<zel::String> reportLines(const std::vector<PilotReport>& pilots);
/// The report of that flight of the record, of the last one for 0: who, his fate and its cause, and
/// why. No lines without such a flight.
std::vector<zel::String> whyLines(SqliteFile& record, int32_t number);
/// Why there is nothing to report, in English. REQUIRES: no orders are out for the career's day.
zel::String whyNoOrders(const Flight& flight, const Database& career);
/// Why no report has come, in English: what the last look for the log has found.
zel::String whyNoReport(const Flight& flight);
