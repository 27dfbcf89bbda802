#pragma once

#include "engine/core/String.h"

class Database;

// The save file: a career's records as they are in memory (docs/formats.md shows it). Names of
// files are relative to the user's folder.

/// Writes the career as WholeFile does; the observer is notified before the rename. What had the
/// name is kept with BackupEnding or, unless it is a whole save, as freeDamagedPath(). On error,
/// also without a career: false, a log line at level 2, Database::writeFault, and the old file
/// stays whole.
[[nodiscard]] bool writeSave(Database& career, const zel::String& name);
/// The path, free so far, under which the next save keeps a damaged file: ".damaged", ".damaged-2"
/// and so on. After LastDamaged of them the last is replaced.
zel::String freeDamagedPath(const zel::String& name);
constexpr int32_t LastDamaged = 99;
/// Whether the file holds exactly this career, so that nothing is lost without another save. True
/// without a career, and for a read-only one that hasn't changed since it was loaded.
bool isSaved(const Database& career, const zel::String& name);
/// Replaces the career by the file's. What is damaged is fixed and counted in `repairs`. If there
/// is no such file, a whole draft gets its name, or the save before it is read. On error: false, a
/// log line at level 3, Database::saveCheck, and neither squadrons nor pilots.
[[nodiscard]] bool readSave(Database& career, const zel::String& name);
/// Whether readBackup() would find a whole save. What was read last doesn't count if it had to be
/// repaired, or was read in place of a file that was missing.
bool hasEarlierSave(const Database& career, const zel::String& name);
/// The same as readSave from the save before the one of that name, which the caller has found
/// damaged, missing or unreadable. The next save keeps a damaged one as freeDamagedPath(), and
/// looks again at one that could not be read. On error: as readSave.
[[nodiscard]] bool readBackup(Database& career, const zel::String& name);
