#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;

/// Months until Wingtally looks for an invitation: a draw from 1 up to a draw in this range.
constexpr int32_t LeastLatestMonth = 2;
constexpr int32_t MostLatestMonth = 4;

/// The next invitation falls due that many months after the career's date; none is pending.
void scheduleInvitation(Database& career, int32_t monthsAhead);

/// "1916/3", as the log shows the month of an invitation.
zel::String yearAndMonth(int32_t year, int32_t month);
