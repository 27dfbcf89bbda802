#pragma once

#include "engine/core/String.h"

class SqliteFile;

// The seal of a record that is closed: a checksum of the file, in PRAGMA application_id. A sealed
// file is as this program left it. Its pages need no check, which takes much longer than reading
// them, and a change that harms no page is noticed.

enum class RecordSeal {
    None, // it was not closed: its program was killed, or another one has it open
    Whole,
    Broken, // changed or damaged outside of the program
};

/// The seal of the file at that path; None if it can't be read.
RecordSeal sealOf(const zel::String& path);
/// Begins a transaction. The record has no seal from its commit on. On error: false, and the file
/// has failed.
bool beginRecord(SqliteFile& file);
/// Seals a record that is closed and has none. On error it has no seal. REQUIRES: SQLite's
/// companions aren't beside it.
void sealRecord(const zel::String& path);
