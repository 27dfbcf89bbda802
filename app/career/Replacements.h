#pragma once

#include <cstdint>

#include "app/career/Records.h"

class Database;

/// A new man of the squadron with a drawn name and no skill yet; he is in no slot. REQUIRES: a
/// valid index.
Pilot makeReplacement(Database& career, int32_t squadron);
/// Gives the slot of each dead pilot of the squadron to a new one. A dead player's successor
/// becomes the player. REQUIRES: a valid index.
void fillVacantSlots(Database& career, int32_t squadron);
