#pragma once

#include <cstdint>
#include <optional>

#include "app/career/SaveCheck.h"
#include "app/record/RecordPages.h"
#include "engine/core/String.h"

class Database;
class SqliteFile;

struct FoundRecord {
    zel::String path;
    PageMark mark; // of the save
};

/// Whether one of the records that were moved away from that path, or kept with a page, holds the
/// page of a save of that content.
bool isKnownElsewhere(const zel::String& path, const CheckedBytes& content, int32_t careerNumber);
/// The same as matchRecord, from the career's record of that path, which may be open, and from all
/// those moved away or kept.
SaveMatch matchRecords(const zel::String& path, SqliteFile* open, bool isReadOnly,
                       const CheckedBytes& content, int32_t& careerNumber);
/// Searches the records that were moved away from that path for one of the career: the one that
/// holds the page of the save, or else, unless onlyOwn, the one that comes closest to it. If it was
/// kept with a page (KeptRecords.h), a copy is used.
std::optional<FoundRecord> findRecord(const zel::String& path, const Database& career,
                                      const SavedPage& save, bool onlyOwn);
