#pragma once

#include <optional>

#include "app/record/RecordPages.h"
#include "engine/core/String.h"

class Database;

struct FoundRecord {
    zel::String path;
    PageMark mark; // of the save
};

/// Searches the records that were moved away from that path for one of the career: the one that
/// holds the page of the save, or else, unless onlyOwn, the one that comes closest to it. Of those
/// that were kept with a page (KeptRecords.h) a copy is used.
std::optional<FoundRecord> findRecord(const zel::String& path, const Database& career,
                                      const SavedPage& save, bool onlyOwn);
