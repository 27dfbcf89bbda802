#pragma once

#include <cstdint>

#include "app/record/RecordFile.h"
#include "engine/core/String.h"

class SqliteFile;

// A career that goes back to an earlier page loses what its record has of the time after it. A copy
// of the record stays with the page that was left, so that going forward again loses nothing.

/// Before the career of that folder goes back: copies its record beside its pages. Does nothing
/// without a record. On error: false, with the reason in `problem`. REQUIRES: the record isn't
/// open.
[[nodiscard]] bool keepRecord(const zel::String& folder, zel::String& problem);

/// An open record that doesn't know the save of that checksum gives way to a copy of one that was
/// kept and knows it. Without such a copy it stays. Returns what opening it has come to.
RecordState preferRestored(SqliteFile& file, const zel::String& path, int32_t careerNumber,
                           const zel::String& checksum);
