#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Where two characters occur in the 64 bytes of a text from a position on: bit i is for the i-th
/// byte, in `first` for the one character and in `second` for the other.
template <char First, char Second> struct ByteMarks {
    static constexpr size_t Width = 64; // bytes
    uint64_t first = 0;
    uint64_t second = 0;

    /// Fast unless the text ends within the 64 bytes; beyond its end all bits are 0.
    /// REQUIRES: start <= text.size().
    ByteMarks(std::string_view text, size_t start) {
        const char* bytes = text.data() + start;
        const size_t count = std::min(text.size() - start, Width);
        size_t i = 0;
#ifdef __SSE2__
        if (count == Width)
            for (; i < Width; i += sizeof(__m128i))
                markStep(bytes, i);
#endif
        for (; i < count; ++i) {
            first |= uint64_t(bytes[i] == First) << i;
            second |= uint64_t(bytes[i] == Second) << i;
        }
    }

    /// Drops the bits of the byte `count` and those after it. REQUIRES: count < Width.
    void keep(size_t count) {
        const uint64_t kept = (uint64_t(1) << count) - 1;
        first &= kept;
        second &= kept;
    }
    /// Position of the lowest and of the highest bit, 0 to 63. REQUIRES: bits != 0.
    static size_t lowest(uint64_t bits) { return size_t(__builtin_ctzll(bits)); }
    static size_t highest(uint64_t bits) { return 63 - size_t(__builtin_clzll(bits)); }

#ifdef __SSE2__
private:
    void markStep(const char* bytes, size_t position) {
        __m128i step;
        std::memcpy(&step, bytes + position, sizeof step);
        const auto marks = [&](char character) {
            const __m128i same = _mm_cmpeq_epi8(step, _mm_set1_epi8(character));
            return uint64_t(uint32_t(_mm_movemask_epi8(same))) << position;
        };
        first |= marks(First);
        second |= marks(Second);
    }
#endif
};
