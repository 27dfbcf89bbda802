#include "app/career/WarPeriods.h"

#include <algorithm>
#include <cmath>

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"

namespace {

constexpr PeriodBounds PeriodsByYear[] = {
    {1915, 16, 28, 1, 16},
    {1916, 16, 24, 1, 16},
    {1917, 16, 22, 1, 14},
    {1918, 14, 18, 1, 12},
};

double meanDays(const PeriodBounds& bounds) {
    return (bounds.upperFrom + bounds.upperTo + bounds.lowerFrom + bounds.lowerTo) / 4.0;
}

} // namespace

const PeriodBounds* periodBounds(int32_t year) {
    for (const PeriodBounds& bounds : PeriodsByYear)
        if (bounds.year == year)
            return &bounds;
    return nullptr;
}

int32_t periodsToCome(int32_t date) {
    const int32_t end = Calendar::ofNumber(FirstDayOfPeace).dayNumber();
    const int32_t today = Calendar::ofNumber(date).dayNumber();
    double periods = 0;
    for (const PeriodBounds& bounds : PeriodsByYear) {
        const int32_t first = std::max(today, Calendar(bounds.year, 1, 1).dayNumber());
        const int32_t last = std::min(end, Calendar(bounds.year + 1, 1, 1).dayNumber());
        periods += std::max(0, last - first) / meanDays(bounds);
    }
    return static_cast<int32_t>(std::ceil(periods));
}
