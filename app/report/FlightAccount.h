#pragma once

#include "app/career/CareerEvents.h"

class CombatReport;
class MissionGenerator;

/// All that is known of a flight whose report has been read: the plan, the report with its words,
/// and what the log says happened when and where. `log` is the log's first piece, with its path.
/// Bullets of one plane in another within a second are one event; of a log with far too many events
/// those after the first thousands are left out, except for the ends of planes and men.
FlownMission accountOf(const CombatReport& report, const MissionGenerator& generator,
                       const zel::String& log);
