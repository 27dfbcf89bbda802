#pragma once

#include <vector>

#include "app/book/BookTables.h"
#include "app/book/Diary.h"

/// What happened in the real war on those days: events, the ends of aces and their great days. The
/// most important ones, by date; of the days before them if nothing happened.
std::vector<DiaryLine> realWar(const BookTables& tables, int32_t from, int32_t until);

/// "7 June", and with a month of at most five letters "7 Sept".
zel::String dayText(int32_t date);
zel::String shortDayText(int32_t date);
