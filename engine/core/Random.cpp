#include "engine/core/Random.h"

#include <algorithm>
#include <atomic>

#include "engine/core/Clock.h"
#include "engine/core/System.h"

namespace zel {

namespace {

constexpr uint32_t Middle = 397;
constexpr uint32_t UpperBit = 0x80000000U;
constexpr uint32_t LowerBits = 0x7FFFFFFFU;

uint32_t staticNumber = 0;
bool staticNumberSet = false;
std::atomic<uint64_t> blocksMade{0}; // threads draw from generators of their own

uint32_t twist(uint32_t upper, uint32_t lower) {
    const uint32_t joined = (upper & UpperBit) | (lower & LowerBits);
    return (joined >> 1) ^ ((0U - (lower & 1U)) & 0x9908B0DFU);
}

uint32_t temper(uint32_t value) {
    value ^= value >> 11;
    value ^= (value << 7) & 0x9D2C5680U;
    value ^= (value << 15) & 0xEFC60000U;
    return value ^ (value >> 18);
}

} // namespace

void Random::setStaticNumber(uint32_t number) {
    staticNumber = number;
    staticNumberSet = true;
}

void Random::seed(uint32_t value) {
    if (value != 0) {
        fillState(value);
        return;
    }
    if (!staticNumberSet)
        setStaticNumber(system::entropy());
    value = ticks() + staticNumber;
    fillState(value);
    staticNumber = next();
    fillState(value);
}

void Random::fillState(uint32_t value) {
    state[0] = value;
    for (uint32_t i = 1; i < BlockSize; ++i)
        state[i] = 1812433253U * (state[i - 1] ^ (state[i - 1] >> 30)) + i;
    index = LeastAhead + BlockSize;
}

void Random::makeBlock() {
    const uint32_t left = ready();
    std::copy_n(values.begin() + index, left, values.begin() + LeastAhead - left);
    index = LeastAhead - left;
    uint32_t i = 0;
    for (; i < BlockSize - Middle; ++i)
        state[i] = state[i + Middle] ^ twist(state[i], state[i + 1]);
    for (; i < BlockSize - 1; ++i)
        state[i] = state[i + Middle - BlockSize] ^ twist(state[i], state[i + 1]);
    state[BlockSize - 1] = state[Middle - 1] ^ twist(state[BlockSize - 1], state[0]);
    for (i = 0; i < BlockSize; ++i)
        values[LeastAhead + i] = temper(state[i]);
    blocksMade.fetch_add(1, std::memory_order_relaxed);
}

void Random::discard(uint32_t count) {
    while (count > 0) {
        if (ready() == 0)
            makeBlock();
        const uint32_t dropped = std::min(count, ready());
        skip(dropped);
        count -= dropped;
    }
}

uint64_t Random::valuesMade() { return blocksMade * BlockSize; }

Random& sharedRandom() {
    static Random shared;
    return shared;
}

int32_t random(int32_t a, int32_t b) { return sharedRandom().getInt(a, b); }
float randomFloat(float a, float b) { return sharedRandom().getFloat(a, b); }
void seedSharedRandom(uint32_t value) { sharedRandom().seed(value); }

} // namespace zel
