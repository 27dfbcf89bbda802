#pragma once

#include <cstdint>
#include <vector>

#include "app/book/WarPart.h"
#include "engine/core/String.h"

class BookTables;
class Database;
class SqliteFile;

/// What the sign in the margin says.
enum class DiarySign : uint8_t { None, Scored, Fallen, Joined, Left };

/// A line of the diary, in the language in use.
struct DiaryLine {
    DiarySign sign = DiarySign::None;
    int32_t weight = 0; // how important it is
    int32_t pilot = -1; // of the career, whose page is opened; -1 for none
    zel::String text;
};

/// What happened since the last flight: in the player's squadron, at the front and in the real war.
/// Each list has at most a page, the most important first; docs/decisions.md has the rule. An empty
/// list says so in a line.
struct Diary {
    int32_t from = 0; // yyyymmdd, the day of the last flight; today if there was none
    int32_t until = 0;
    std::vector<DiaryLine> squadron;
    std::vector<DiaryLine> front;
    std::vector<DiaryLine> real; // by date
    WarPart war;
};

/// On error: a line saying that the record can't be read, and the real war's lines; the file has
/// failed.
Diary readDiary(SqliteFile& record, const Database& career, const BookTables& tables);
