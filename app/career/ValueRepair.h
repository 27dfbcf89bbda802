#pragma once

#include <cstdint>

class Database;

/// Corrects what the records of squadrons, pilots and data lines hold and no career ever does:
/// nations, control characters in texts, flags, figures and bases. What can be known from another
/// record is taken from there. Returns the number of values corrected. REQUIRES: indices that
/// lead somewhere or to nothing.
int32_t repairValues(Database& career);
