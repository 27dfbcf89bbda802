#pragma once

#include "app/book/Diary.h"

// The diary as text, in the language in use. The examples are the English ones.

/// "7 to 10 June 1917".
zel::String daysText(int32_t from, int32_t until);
/// The whole diary as lines.
std::vector<zel::String> diaryLines(const Diary& diary);
