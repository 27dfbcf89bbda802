#pragma once

#include <cstdint>
#include <vector>

#include "app/book/BookTables.h"
#include "engine/core/String.h"

class Database;
struct LogBook;

/// An ace of history in a unit. Dates are yyyymmdd.
struct RealMember {
    const RealAce* ace = nullptr; // of the tables
    int32_t from = 0;
    int32_t until = 0; // not in it on that day

    /// How many he won there from one day up to, but not on, another.
    int32_t victories(int32_t since, int32_t end) const;
};

/// The men with whom the charts compare the player over the months of the book: the aces of his
/// squadrons or, if the tables know none who scored there, the five best of the front.
struct RealMen {
    /// A month of the book, and the men of the squadron in which the player flew then.
    struct SquadronMonth {
        int32_t month = 0; // yyyymm
        std::vector<RealMember> men;
    };

    int32_t since = 0; // yyyymmdd, the first day of the months; so end, the day after the last
    int32_t end = 0;
    std::vector<SquadronMonth> months;
    std::vector<RealMember> best; // at most five, the best first: of the present squadron, if any
    bool isFront = false;
};
/// REQUIRES: there is a flight.
RealMen realMen(const LogBook& book, const Database& career, const BookTables& tables);

/// A month of the war: the victories of all the book's pilots, and the best of the real men.
struct MonthScore {
    int32_t month = 0; // yyyymm
    int32_t own = 0;
    int32_t best = 0;
    zel::String bestMan; // empty if none of them scored
};
/// Every month from the first flight to the last one. REQUIRES: there is a flight.
std::vector<MonthScore> monthScores(const LogBook& book, const RealMen& men);

/// The month of a date, yyyymm.
constexpr int32_t monthOf(int32_t date) { return date / 100; }
