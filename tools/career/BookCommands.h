#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

class BookTables;
class Database;
class SqliteFile;

// What the commands of the book of the war print, in the current language. A record that can't be
// read leaves its file failed.

/// All flights of the player and his predecessors, and their totals.
std::vector<zel::String> logBookPage(SqliteFile& record, const Database& career,
                                     const BookTables& tables);
/// The squadron, the front and the real war since the last flight.
std::vector<zel::String> diaryPage(SqliteFile& record, const Database& career,
                                   const BookTables& tables);
/// The player's unit, ranks, decorations and victories.
std::vector<zel::String> serviceRecord(SqliteFile& record, const Database& career,
                                       const BookTables& tables);
/// The letter about the player's pilot who fell last.
std::vector<zel::String> letterPage(SqliteFile& record, const Database& career,
                                    const BookTables& tables);
/// What remains of the career, and the board of the aces; only after the war.
std::vector<zel::String> endPage(SqliteFile& record, const Database& career,
                                 const BookTables& tables);
/// The page of the pilot whose name contains that text; of several the names.
std::vector<zel::String> pilotPage(SqliteFile& record, const Database& career,
                                   const BookTables& tables, std::string_view name);
