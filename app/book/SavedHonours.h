#pragma once

#include "app/book/Honours.h"

struct SaveSummary;

/// Rank and decorations of the pilot of a save on the shelf, from the record beside it: those that
/// his record of service shows when the save is open. Only the rows of his flights are read, so
/// that a whole drawer opens at once. A record that is ahead of the save counts up to the save's
/// day. None if the record is missing, can't be read or is another career's.
/// record: the path of its file.
Honours savedHonours(const zel::String& record, const SaveSummary& save, const BookTables& tables);
