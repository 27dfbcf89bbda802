#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "app/career/CareerObserver.h"

namespace warstats {

/// The nations that are counted, in this order.
constexpr size_t NationCount = 4;
/// 0 France, 1 England, 2 USA, 3 Germany; NationCount for another code.
size_t nationIndex(int32_t code);

/// What happened in a day, by nation. A period's events are spread evenly over its days, so the
/// numbers have fractions.
struct DayCounts {
    std::array<double, NationCount> claimed{}; // victories of its pilots
    std::array<double, NationCount> lost{};    // machines
    std::array<double, NationCount> dead{};    // pilots
    double byHistoric = 0;                     // victories of named men
    double strength = 0;                       // living pilots of all squadrons, active or not

    void add(const DayCounts& other, double share);
};

/// Counts what happens in a war, day by day from 1 December 1915.
class WarTally : public CareerObserver {
public:
    void onVictory(const Database& career, const Victory& victory) override;
    void onPosting(const Database& career, const Posting& posting) override;
    /// Closes a period: what was counted since the last call is spread over the days after the one
    /// before and up to the career's date. The first call only notes the date.
    void closePeriod(const Database& career);

    /// The figures of those days from..until (yyyymmdd) that belong to the war.
    DayCounts sum(int32_t from, int32_t until) const;

    std::map<int32_t, int32_t> deathOf; // date by the index of a named pilot

private:
    DayCounts period;
    int32_t closed = 0; // day number up to which all is spread; 0 before the first call
    std::vector<DayCounts> days;
};

} // namespace warstats
