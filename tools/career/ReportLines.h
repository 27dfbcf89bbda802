#pragma once

#include <vector>

#include "app/career/PilotReport.h"
#include "engine/core/String.h"

class Database;
class Flight;

// What the command report prints.

/// The combat report's two columns, in the language in use.
std::vector<zel::String> reportLines(const std::vector<PilotReport>& pilots);
/// Why there is nothing to report, in English: no orders are out for the career's day. REQUIRES: so
/// it is.
zel::String whyNoOrders(const Flight& flight, const Database& career);
/// Why no report has come, in English: what the last look for the log has found.
zel::String whyNoReport(const Flight& flight);
