#pragma once

#include <cstdint>

#include "app/record/RecordFile.h"
#include "engine/core/String.h"

class Problem;
class SqliteFile;

// A career that goes back to an earlier page loses what its record has of the time after it. A copy
// of the record stays with the page that was left, so that going forward again loses nothing.

/// Call it before the career of that folder goes back. Copies its record beside its pages, under
/// the checksum of its save, or of the last one that the record knows. Does nothing without a
/// record. On error: false, with the reason in `problem`. REQUIRES: the record isn't open.
[[nodiscard]] bool keepRecord(const zel::String& folder, Problem& problem);

/// Whether one of these records knows the save of that checksum.
bool isKept(const zel::String& record, const zel::String& checksum);
/// Copies the newest of these records that knows the save of that checksum to a free name beside
/// the career's record. The copy's path; empty if there is none, or on error.
zel::String copyKeptRecord(const zel::String& record, const zel::String& checksum);
/// Replaces the copy that was kept with the record's last page by the record itself, which another
/// one is about to replace. False if there is no such copy, or on error. REQUIRES: the record isn't
/// open.
[[nodiscard]] bool keepReplaced(const zel::String& record);
