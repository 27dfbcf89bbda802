#pragma once

#include <vector>

#include "app/book/BookTables.h"
#include "app/book/Diary.h"

/// What happened in the real war from one day up to, but not on, the other: events, the ends of
/// aces and their great days. The most important ones, by date; those of the days before if nothing
/// happened or both are the same day. An ace whom an event of the day names has no line of his own
/// for that day.
std::vector<DiaryLine> realWar(const BookTables& tables, int32_t from, int32_t until);

/// "7 June", and with a month of at most five letters "7 Sept".
zel::String dayText(int32_t date);
zel::String shortDayText(int32_t date);
