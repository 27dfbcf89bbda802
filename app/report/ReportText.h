#pragma once

#include <vector>

#include "app/career/CareerEvents.h"
#include "app/career/PilotReport.h"
#include "engine/core/String.h"

enum class LogState;
struct LogNews;
struct Wording;

// In the language in use; the examples are English.

/// One record of the combat report: who, his fate, who caused it, and why that is so (Outcome.h).
struct ReportEntry {
    zel::String pilot; // "Name - Kills: n"
    zel::String fate;
    zel::String cause; // empty unless the plane was shot down
    zel::String reason;
    bool isPlayer = false;
};

/// The report's two columns, a side each: the first record's side is on the left.
struct ReportColumns {
    std::vector<ReportEntry> left;
    std::vector<ReportEntry> right;
    zel::String note; // why the player's plane matches no pilot of the plan; usually empty
};

/// The records in their order, without those that have no name. Objects on the ground have the
/// names of groundObject() instead of those in the log. events: of the flight, for the reasons.
ReportColumns combatReportColumns(const std::vector<PilotReport>& pilots,
                                  const std::vector<FlightEvent>& events);

/// What a look for the log has found; its "$1" is LogNews::detail.
const Wording& newsWording(LogState state);
/// The same with its detail and, for a log that can't be read, the reason.
zel::String newsText(const LogNews& news);
