#pragma once

#include <cstddef>
#include <cstdint>

#include "app/career/CareerEvents.h"

class SqliteFile;

// The tables of the record and how they came to be; docs/formats.md describes each column.

/// Step i turns a file of version i (PRAGMA user_version) into one of version i + 1. A step that
/// was released is never changed: a later change is a step of its own, with a test that begins with
/// a file of the version before.
extern const char* const RecordSteps[];
extern const int32_t RecordVersion; // number of the steps

/// Brings the file to the version after those steps, each in a transaction of its own. False, with
/// the file at the last version reached, on an error. A version below 0 is one.
bool migrateRecord(SqliteFile& file, const char* const* steps = RecordSteps,
                   int32_t count = RecordVersion);

// What the record's columns hold for these values: "joined", "shot down", "take-off".

const char* kindName(PostingKind kind);
const char* causeName(PostingCause cause);
const char* kindName(FlightEventKind kind);
