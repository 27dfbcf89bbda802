#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/core/Random.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// A draw selects one of this many places by its remainder.
constexpr int32_t FightPlaces = 16;

/// Bit i is set when values[i] % FightPlaces is below the limit, for sixteen values.
inline uint32_t placesBelow(const uint32_t* values, int32_t limit) {
#ifdef __SSE2__
    const auto placesAt = [values](int32_t index) {
        const auto* four = reinterpret_cast<const __m128i*>(values + index);
        return _mm_and_si128(_mm_loadu_si128(four), _mm_set1_epi32(FightPlaces - 1));
    };
    const __m128i places = _mm_packs_epi16(_mm_packs_epi32(placesAt(0), placesAt(4)),
                                           _mm_packs_epi32(placesAt(8), placesAt(12)));
    const __m128i limits = _mm_set1_epi8(static_cast<char>(limit));
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmplt_epi8(places, limits)));
#else
    uint32_t below = 0;
    for (uint32_t i = 0; i < 16; ++i)
        below |= (static_cast<int32_t>(values[i] % FightPlaces) < limit ? 1U : 0U) << i;
    return below;
#endif
}

/// Finds the steps of a fight that can lead to a meeting: those whose two draws select two planes
/// of different sides. Places below `front` belong to one side, those from there to `planes` to the
/// other; the rest are empty. A whole block of draws is looked at together, because no processor
/// can predict how far it is to the next such step.
///
/// REQUIRES: one generator, which gives fewer values than a block between two calls.
class MeetingMap {
public:
    MeetingMap(int32_t front, int32_t planes) : front(front), planes(planes) {}

    /// Takes the draws of the next steps, up to `most`, that cannot lead to a meeting, and returns
    /// the number of these steps. Takes only pairs that are in the present block, so more may
    /// follow.
    int32_t skipMisses(zel::Random& random, int32_t most) {
        if (random.ready() > ready) // another block; each draw leaves fewer
            make(random.block());
        const uint32_t first = zel::Random::BlockSize - random.ready();
        uint32_t place = first;
        for (; place < zel::Random::BlockSize; place += 64) {
            const uint64_t found = from(place) & EverySecond;
            if (found != 0) {
                place += static_cast<uint32_t>(__builtin_ctzll(found));
                break;
            }
        }
        const uint32_t pairs = (std::min(place, zel::Random::BlockSize) - first) / 2;
        const uint32_t misses = std::min(pairs, static_cast<uint32_t>(most));
        random.skip(2 * misses);
        ready = random.ready();
        return static_cast<int32_t>(misses);
    }

private:
    static constexpr uint64_t EverySecond = 0x5555555555555555;
    static constexpr uint32_t Words = zel::Random::BlockSize / 64 + 2; // the last one stays 0

    /// The 64 bits from that draw on.
    uint64_t from(uint32_t place) const {
        const uint32_t shift = place % 64;
        const uint64_t* words = &meets[place / 64];
        return words[0] >> shift | words[1] << 1 << (63 - shift);
    }

    void make(const uint32_t* values) {
        std::array<uint64_t, Words> inFront{};
        std::array<uint64_t, Words> taken{}; // the places where a plane is
        for (uint32_t i = 0; i < zel::Random::BlockSize; i += 16) {
            inFront[i / 64] |= uint64_t{placesBelow(values + i, front)} << i % 64;
            taken[i / 64] |= uint64_t{placesBelow(values + i, planes)} << i % 64;
        }
        for (uint32_t i = 0; i + 1 < Words; ++i) {
            const uint64_t nextInFront = inFront[i] >> 1 | inFront[i + 1] << 63;
            const uint64_t nextTaken = taken[i] >> 1 | taken[i + 1] << 63;
            meets[i] = (inFront[i] ^ nextInFront) & taken[i] & nextTaken;
        }
    }

    int32_t front;
    int32_t planes;
    std::array<uint64_t, Words> meets{}; // bit i: draws i and i + 1 of the block do
    uint32_t ready = 0;                  // draws that were left of it after the last call
};
static_assert(zel::Random::BlockSize % 16 == 0);

/// A generator's draws as a meeting takes them, one by one.
class PlainDraws {
public:
    explicit PlainDraws(zel::Random& random) : random(random) {}
    template <uint32_t Most> int32_t getInt() { return random.getIntUpTo<Most>(); } // from 0
    float getFloat(float most) { return random.getFloat(0, most); }
    /// A draw up to `most` if the condition holds, otherwise 0 and no draw.
    float getFloatIf(bool condition, float most) { return condition ? getFloat(most) : 0; }
    /// Repeated `times` times: draws a place and, if it is above the skill, replaces the value by a
    /// draw from 0 to the value.
    float fumble(float value, int32_t skill, int32_t times) {
        for (int32_t i = 0; i < times; ++i)
            if (getInt<FightPlaces - 1>() > skill)
                value = getFloat(value);
        return value;
    }

private:
    zel::Random& random;
};

/// The same draws from values that are ready. Whether a draw is taken is a coin toss, which no
/// processor can predict: both outcomes are computed and one is kept. Integers make the choice,
/// because compilers turn one between floats into a branch.
class ReadyDraws {
public:
    /// The most values that a meeting takes; this many must be ready.
    static constexpr uint32_t MostOfMeeting = 26;

    ReadyDraws(zel::Random& random, const uint32_t* values)
        : random(random), first(values), next(values) {}
    ~ReadyDraws() { random.skip(static_cast<uint32_t>(next - first)); }
    ReadyDraws(const ReadyDraws&) = delete;
    ReadyDraws& operator=(const ReadyDraws&) = delete;

    template <uint32_t Most> int32_t getInt() { return static_cast<int32_t>(*next++ % (Most + 1)); }
    float getFloat(float most) { return fraction(*next++) * most; }
    float getFloatIf(bool condition, float most) {
        const uint32_t taken = condition ? 1 : 0;
        const uint32_t value = *next & (0 - taken);
        next += taken;
        return fraction(value) * most;
    }
    float fumble(float value, int32_t skill, int32_t times) {
        constexpr uint64_t One = uint64_t{1} << 32; // as a fraction, 1.0
        uint32_t fumbles = ~placesBelow(next, std::min(skill, FightPlaces - 1) + 1);
        for (int32_t i = 0; i < times; ++i) {
            const uint32_t taken = fumbles & 1;
            value *= fraction(One ^ ((next[1] ^ One) & (0 - uint64_t{taken})));
            next += 1 + taken;
            fumbles >>= 1 + taken;
        }
        return value;
    }

private:
    static float fraction(uint64_t value) {
        return static_cast<float>(static_cast<int64_t>(value)) * 0x1p-32F;
    }

    zel::Random& random;
    const uint32_t* first;
    const uint32_t* next;
};
