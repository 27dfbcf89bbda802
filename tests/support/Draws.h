#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/core/Random.h"

/// The number of values that a generator gave between two of its states; -1 if it was seeded again
/// or gave more than `most`.
inline int64_t drawsBetween(zel::Random before, zel::Random after, int64_t most = 50'000'000) {
    // Eight values in a row identify the state: a match by chance is negligible.
    std::array<uint32_t, 8> wanted;
    std::array<uint32_t, 8> seen;
    for (uint32_t& value : wanted)
        value = after.next();
    for (uint32_t& value : seen)
        value = before.next();
    for (int64_t count = 0; count <= most; ++count) {
        if (seen == wanted)
            return count;
        std::rotate(seen.begin(), seen.begin() + 1, seen.end());
        seen.back() = before.next();
    }
    return -1;
}
