#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;

// The historical data files as tables of the career: squadronFiles, pilotFiles and the dataLines
// that both refer to. docs/data-files.md describes the files. Dates play no part in the look-ups.

/// Reads the squadron and pilot folders, the delivered ones before the player's own, and replaces
/// what the career holds of them. A file of a name met before adds its lines to the same record.
/// On error: bad files are logged and read as far as they make sense. If the disk failed in the
/// middle of one, Database::hasBrokenHistory is set.
void readDataFiles(Database& career);
/// Whether a line of that squadron's file names the type.
bool hasAircraft(const Database& career, const zel::String& key, const zel::String& plane);
/// The paint that the squadron has for the type; empty for none.
zel::String squadronSkin(const Database& career, const zel::String& key, const zel::String& plane);
/// The personal paint of a named pilot; empty for none, and for an index out of range.
zel::String pilotSkin(const Database& career, int32_t pilotFile, const zel::String& plane);
