#pragma once

#include <array>
#include <cstdint>

#include "engine/core/Random.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// A draw selects one of this many places by its remainder.
constexpr int32_t FightPlaces = 16;

/// Bit i is set when places[i] is above limits[i], for sixteen of each.
inline uint32_t placesAbove(const uint8_t* places, const int8_t* limits) {
#ifdef __SSE2__
    const __m128i all = _mm_loadu_si128(reinterpret_cast<const __m128i*>(places));
    const __m128i bounds = _mm_loadu_si128(reinterpret_cast<const __m128i*>(limits));
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpgt_epi8(all, bounds)));
#else
    uint32_t above = 0;
    for (uint32_t i = 0; i < 16; ++i)
        above |= (places[i] > limits[i] ? 1U : 0U) << i;
    return above;
#endif
}

/// A fight's position in its window of draws.
struct DrawCursor {
    uint32_t next = 0;  // draw of the window
    uint64_t pairs = 0; // bit i: the draws next + i and next + i + 1 select a pair that can meet

    /// Goes on by one draw or none. May be called twice: the last two bits of `pairs` mean nothing.
    void take(uint32_t count) {
        next += count;
        pairs >>= count;
    }
};

/// The draws that a generator has ready, as a fight looks at them. It finds the steps that can lead
/// to a meeting: those whose two draws select two planes of different sides. Places below `front`
/// belong to one side, those from there to `planes` to the other; the rest are empty. With a front
/// of 0 the sides are mixed, and every step counts. All draws are looked at together, because no
/// processor can predict how far it is to the next such step.
class DrawWindow {
public:
    /// The most draws of a step, and one more, so that a cursor is always before a draw.
    static constexpr uint32_t MostOfStep = 27 + 1;
    static_assert(MostOfStep < zel::Random::LeastAhead);

    /// Shows the draws that the generator has ready. REQUIRES: it outlives the window.
    DrawWindow(zel::Random& random, int32_t front, int32_t planes);
    DrawWindow(const DrawWindow&) = delete;
    DrawWindow& operator=(const DrawWindow&) = delete;

    /// The cursor before that draw of the window.
    DrawCursor cursorAt(uint32_t draw) const {
        const uint32_t shift = draw % 64;
        const uint64_t* words = &pairs[draw / 64];
        return {draw, words[0] >> shift | words[1] << 1 << (63 - shift)};
    }
    /// The first draw of the next step that can lead to a meeting. Where there is none, the first
    /// draw of the first step above lastStep().
    uint32_t findPair(DrawCursor from) const {
        constexpr uint64_t FirstOfTwo = 0x1555555555555555;
        while ((from.pairs & FirstOfTwo) == 0)
            from = cursorAt(from.next + 62);
        return from.next + static_cast<uint32_t>(__builtin_ctzll(from.pairs & FirstOfTwo));
    }
    /// The last draw with which a step can begin and have all its draws in the window.
    uint32_t lastStep() const { return last; }
    /// The draws of the window, from that one on.
    const uint32_t* drawsAt(uint32_t draw) const { return draws + draw; }
    /// The places that the draws select.
    const uint8_t* placesAt(uint32_t draw) const { return &places[draw]; }

    /// Takes the next `count` draws from the generator. The window then shows what is ready.
    void take(uint32_t count);

private:
    static constexpr uint32_t Words =
        (zel::Random::LeastAhead + zel::Random::BlockSize + 63) / 64 + 1;

    void fill();

    zel::Random& random;
    int32_t front;
    int32_t planes;
    const uint32_t* draws = nullptr;
    uint32_t last = 0;
    std::array<uint8_t, size_t{64} * Words> places; // of each draw
    std::array<uint64_t, Words>
        pairs; // bit of each draw, as in DrawCursor; set above the last step
};

/// How the draws of an attacker's aims are used: each aim draws a place, and one above his skill is
/// followed by a draw that spoils the aim. Bit i of a path's number: draw i is above the skill.
/// That can't be predicted, so a table is read instead of testing draw by draw.
struct AimPath {
    static constexpr uint32_t Aims = 4;
    std::array<float, Aims> least{};      // of the aim's factor: 1 for an aim that isn't spoilt
    std::array<uint8_t, Aims> factor{};   // the draw that spoils the aim, or any other
    std::array<uint8_t, Aims + 1> next{}; // the first draw after this many aims
};

/// The paths of all numbers of eight draws.
constexpr std::array<AimPath, 256> makeAimPaths() {
    std::array<AimPath, 256> paths{};
    for (uint32_t number = 0; number < paths.size(); ++number) {
        AimPath& path = paths[number];
        for (uint32_t i = 0; i < AimPath::Aims; ++i) {
            const bool isSpoilt = (number >> path.next[i] & 1) != 0;
            path.least[i] = isSpoilt ? 0 : 1;
            path.factor[i] = static_cast<uint8_t>(path.next[i] + 1);
            path.next[i + 1] = static_cast<uint8_t>(path.next[i] + (isSpoilt ? 2 : 1));
        }
    }
    return paths;
}
inline constexpr std::array<AimPath, 256> AimPaths = makeAimPaths();
