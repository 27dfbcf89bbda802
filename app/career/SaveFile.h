#pragma once

#include "engine/core/String.h"

class Database;

// The save file: a career's records as they are in memory (docs/formats.md shows it). Names of
// files are relative to the user's folder.

/// Writes the career beside its name and renames it; the file before it is kept with BackupEnding,
/// or with DamagedEnding if the career was loaded from it and it was not whole. On error, also
/// without a career: false, a log line at level 2, and the old file stays whole.
[[nodiscard]] bool writeSave(Database& career, const zel::String& name);
/// Whether the file holds exactly this career, so that nothing is lost without another save. True
/// without a career.
bool isSaved(const Database& career, const zel::String& name);
/// Replaces the career by the file's. What is damaged is fixed and counted in `repairs`. On error:
/// false, a log line at level 3, and neither squadrons nor pilots.
[[nodiscard]] bool readSave(Database& career, const zel::String& name);
/// The same from the save before the one of that name, which the caller has found damaged: the
/// next save keeps it with DamagedEnding. On error: as readSave.
[[nodiscard]] bool readBackup(Database& career, const zel::String& name);
