#pragma once

#include "app/career/CareerEvents.h"

class CombatReport;
class MissionGenerator;

/// Everything known about a flight whose report has been read: the plan, the report with its
/// wording, and the log's events with time and place. `log` is the log's first piece, with its
/// path. Bullets from one plane that hit another within a second are one event. If a log has far
/// too many events, hits, damage and positions after the first few thousand are dropped.
FlownMission accountOf(const CombatReport& report, const MissionGenerator& generator,
                       const zel::String& log);
