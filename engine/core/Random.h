#pragma once

#include <array>
#include <cstdint>
#include <utility>

namespace zel {

/// The Mersenne Twister MT19937 (M. Matsumoto and T. Nishimura, "Mersenne Twister: A
/// 623-dimensionally equidistributed uniform pseudo-random number generator", 1998), in its
/// 32-bit form with the initialisation of 2002.
///
/// A career is a function of its draws: each draw below takes exactly one value.
class Random {
public:
    /// Values are made in blocks of that many.
    static constexpr uint32_t BlockSize = 624;

    Random() { seed(0); }
    explicit Random(uint32_t value) { seed(value); }
    virtual ~Random() = default;
    Random(const Random&) = default;
    Random& operator=(const Random&) = default;

    /// 0 means a fresh seed: the ticks of the clock plus a static number, which is then replaced by
    /// a draw, so that two generators of the same millisecond differ.
    void seed(uint32_t value);

    /// The next 32-bit value of the published sequence.
    uint32_t next() {
        if (ready() == 0)
            makeBlock();
        return values[index++];
    }
    /// a to b inclusive; the bounds are exchanged if a is greater.
    int32_t getInt(int32_t a, int32_t b) {
        if (a > b)
            std::swap(a, b);
        const uint32_t range = static_cast<uint32_t>(b) - static_cast<uint32_t>(a) + 1;
        const uint32_t value = next();
        // A range of 0 means all of int32.
        return static_cast<int32_t>((range != 0 ? value % range : value) +
                                    static_cast<uint32_t>(a));
    }
    bool getBool() { return getInt(0, 1) == 1; }
    /// 0 to 1 inclusive: the largest draws round up to 1.
    float getFloat() { return static_cast<float>(next()) * 0x1p-32F; }
    float getFloat(float a, float b) { return getFloat() * (b - a) + a; }

    /// At least this many values are ready after ahead().
    static constexpr uint32_t LeastAhead = 32;
    /// This many words past the ready values may be read as well; their contents mean nothing.
    static constexpr uint32_t Padding = 64;

    /// The next values without taking them, for hot code that takes some of them and then reports
    /// how many with skip(). Makes another block if fewer than LeastAhead are ready. Valid until
    /// the next draw.
    const uint32_t* ahead() {
        if (ready() < LeastAhead)
            makeBlock();
        return values.data() + index;
    }
    /// How many values are made and not taken.
    uint32_t ready() const { return LeastAhead + BlockSize - index; }
    /// Takes the next `count` values, which must be ready.
    void skip(uint32_t count) { index += count; }
    /// Takes that many values and drops them.
    void discard(uint32_t count);

    /// Sets the static number that a seed of 0 starts from; together with the clock's tick source
    /// it makes a whole run reproducible. Unset, it comes from the system's entropy at first use.
    static void setStaticNumber(uint32_t number);

    /// How many values all generators of the program have made so far, in whole blocks of 624: for
    /// measurements, at no cost per draw.
    static uint64_t valuesMade();

private:
    void fillState(uint32_t value);
    void makeBlock();

    std::array<uint32_t, BlockSize> state{};
    // A block made from the state, preceded by the unused values of the one before.
    std::array<uint32_t, LeastAhead + BlockSize + Padding> values{};
    uint32_t index = LeastAhead + BlockSize; // of the next value
};

/// The engine's shared generator, built at its first use.
Random& sharedRandom();
/// Draws of the shared generator. `random` exchanges its bounds like getInt.
int32_t random(int32_t a, int32_t b);
float randomFloat(float a, float b);
/// Seeds the shared generator again, for tests and reproducible runs.
void seedSharedRandom(uint32_t value);

} // namespace zel
