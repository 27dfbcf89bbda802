#pragma once

#include <cstddef>

#include "app/career/CareerEvents.h"

class CombatReport;
class MissionGenerator;

/// After this many events of a log, hits, damage and positions are dropped.
constexpr size_t MostFlightEvents = 1500;

/// Everything known about a flight whose report has been read: the plan, the report with its
/// wording, and the log's events with time and place. `log` is the log's first piece, with its
/// path. Bullets from one plane that hit another within a second are one event.
FlownMission accountOf(const CombatReport& report, const MissionGenerator& generator,
                       const zel::String& log);
