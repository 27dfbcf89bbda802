#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

class Database;
class SqliteFile;

/// How far the player has got in the war.
struct WarPart {
    int32_t since = 0;            // yyyymmdd: the first day he flies, his predecessors included
    int32_t today = 0;            // likewise, the career's date
    std::vector<int32_t> flights; // days of all flights
    int32_t flown = 0;            // how many; the save's count if the record lacks some
    int32_t expected = 0;         // in all, by the mean length of the periods to come
};

/// On error: what the career knows by itself, and the file has failed.
WarPart readWarPart(SqliteFile& record, const Database& career);

/// "Flight 14 of about 83", of the last flight, or with isNext of the one to come; "The war is
/// over" at its end. The examples are the English ones.
zel::String flightOfText(const WarPart& war, bool isNext);
/// "2 months served, 17 months to come".
zel::String servedText(const WarPart& war);
