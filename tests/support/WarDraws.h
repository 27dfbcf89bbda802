#pragma once

#include <cstdint>

#include "engine/core/Random.h"

/// The days of a period that begins in that year: the upper bound, the lower, the days between.
inline int32_t drawDays(int32_t year, zel::Random& draws) {
    constexpr int32_t Bounds[][3] = {{16, 28, 16}, {16, 24, 16}, {16, 22, 14}, {14, 18, 12}};
    if (year < 1915 || year > 1918)
        return 0;
    const auto& [from, to, least] = Bounds[year - 1915];
    const int32_t upper = draws.getInt(from, to);
    const int32_t lower = draws.getInt(1, least);
    return draws.getInt(lower, upper);
}
