#pragma once

#include <cstdint>
#include <type_traits>

#include "app/career/Records.h"

/// One line at level 2: there is no record of that kind at that index.
void logMissingRecord(const char* kind, int32_t index);

/// The record of that index; `kind` is what the log calls it. On error: logMissingRecord, and a
/// blank record, which belongs to nobody and names nothing. What is written into it is lost.
template <typename Records> auto& recordAt(Records& records, int32_t index, const char* kind) {
    if (index >= 0 && static_cast<uint32_t>(index) < records.size())
        return records[index];
    logMissingRecord(kind, index);
    using RecordType = std::remove_reference_t<decltype(records[0])>;
    static std::remove_const_t<RecordType> none;
    none = blank<std::remove_const_t<RecordType>>();
    return static_cast<RecordType&>(none);
}
