#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/core/Random.h"

/// How many values a generator has given between two states of it; -1 if it was seeded anew, or
/// gave more than `most`.
inline int64_t drawsBetween(zel::Random before, zel::Random after, int64_t most = 50'000'000) {
    // Eight values in a row stand for the state: that they agree by chance isn't to be feared.
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
