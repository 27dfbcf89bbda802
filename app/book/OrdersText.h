#pragma once

#include "app/book/Theatre.h"
#include "engine/core/String.h"

struct PilotRecord;

// What the orders of the day say, in the language in use. The examples are the English ones.

/// "Patrol near Lens, 12 km north-east of your field, and attack whatever you meet."
zel::String taskText(const MapPoint& field, const MapPoint& fight, bool onChannelMap);
/// "2nd Lt E. Harcourt (you)": the player in the roster, in at most `letters` characters.
zel::String rosterName(const PilotRecord& player, size_t letters);
/// "Red ring: the fight, 31 km east-north-east".
zel::String fightText(const MapPoint& field, const MapPoint& fight);
