#pragma once

#include <cstdint>
#include <optional>

#include "app/career/MissionOrders.h"

class SqliteFile;

// The tables of the orders. Each day of the war has its own; docs/decisions.md says how long they
// are kept. On error: the file has failed.

/// Replaces the orders of their day. Logs known to an earlier day stay known to it.
void writeOrders(SqliteFile& file, const MissionOrders& orders);
/// The orders of that day, with everything but the career's number; nothing if there are none.
std::optional<MissionOrders> readOrders(SqliteFile& file, int32_t date);
/// Notes the log by which the flight of that day was reported.
void noteReportedLog(SqliteFile& file, int32_t date, const zel::String& log);
/// Removes the orders of all later days.
void cutOrders(SqliteFile& file, int32_t date);
/// The day of the latest orders; 0 if their flight was reported, or there are none.
int32_t lastUnreported(SqliteFile& file);
