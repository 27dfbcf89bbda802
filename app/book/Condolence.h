#pragma once

#include <vector>

#include "engine/core/String.h"

class BookTables;
class Database;
class SqliteFile;

/// The letter to the family of one of the player's pilots who fell, and the card with his
/// successor, in the language in use.
struct Condolence {
    int32_t date = 0;   // yyyymmdd, of his last flight, or a later day if the record lacks it
    int32_t nation = 0; // of his squadron
    zel::String greeting;
    zel::String text;
    zel::String sender;
    zel::String successor;
    bool hasSuccessor = false; // somebody has taken his place
};

/// The letter about that pilot of the career. On error: what the career knows by itself, and the
/// file has failed.
Condolence condolenceFor(SqliteFile& record, const Database& career, const BookTables& tables,
                         int32_t pilot);

/// The last of the player's pilots to fall, if his successor hasn't flown yet; -1 for nobody.
int32_t lastFallen(SqliteFile& record, const Database& career);
/// That pilot's predecessor; -1 if he succeeded nobody.
int32_t predecessorOf(SqliteFile& record, const Database& career, int32_t pilot);

/// The whole letter as lines.
std::vector<zel::String> condolenceLines(const Condolence& letter);
