#include "app/war/FightDraws.h"

#include <algorithm>

namespace {

/// The places that sixteen draws select.
void placesOf(const uint32_t* draws, uint8_t* places) {
#ifdef __SSE2__
    const auto placesAt = [draws](int32_t index) {
        const auto* four = reinterpret_cast<const __m128i*>(draws + index);
        return _mm_and_si128(_mm_loadu_si128(four), _mm_set1_epi32(FightPlaces - 1));
    };
    const __m128i all = _mm_packs_epi16(_mm_packs_epi32(placesAt(0), placesAt(4)),
                                        _mm_packs_epi32(placesAt(8), placesAt(12)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(places), all);
#else
    for (uint32_t i = 0; i < 16; ++i)
        places[i] = static_cast<uint8_t>(draws[i] % FightPlaces);
#endif
}

/// What sixteen places are compared with.
using Limits = std::array<int8_t, 16>;

Limits limitsBelow(int32_t bound) {
    Limits limits;
    limits.fill(static_cast<int8_t>(bound - 1));
    return limits;
}

} // namespace

DrawWindow::DrawWindow(zel::Random& random, int32_t front, int32_t planes)
    : random(random), front(front), planes(planes) {
    fill();
}

void DrawWindow::take(uint32_t count) {
    random.skip(count);
    fill();
}

void DrawWindow::fill() {
    const uint32_t* ready = random.ahead();
    const uint32_t count = random.ready();
    const Limits ofFront = limitsBelow(front);
    const Limits ofPlanes = limitsBelow(planes);
    uint64_t behind = 0; // places that aren't below front
    uint64_t empty = 0;  // places without a plane
    uint32_t word = 0;
    for (; 64 * word < count; ++word) {
        uint64_t nextBehind = 0;
        uint64_t nextEmpty = 0;
        for (uint32_t i = 0; i < 64; i += 16) {
            const uint32_t draw = 64 * word + i;
            uint8_t* sixteen = &places[draw];
            placesOf(ready + draw, sixteen);
            nextBehind |= uint64_t{placesAbove(sixteen, ofFront.data())} << i;
            nextEmpty |= uint64_t{placesAbove(sixteen, ofPlanes.data())} << i;
        }
        if (word > 0)
            pairs[word - 1] = (behind ^ (behind >> 1 | nextBehind << 63)) &
                              ~(empty | empty >> 1 | nextEmpty << 63);
        behind = nextBehind;
        empty = nextEmpty;
    }
    pairs[word - 1] = (behind ^ behind >> 1) & ~(empty | empty >> 1);
    draws = ready;
    last = count - MostOfStep;

    const uint32_t end = front == 0 ? 0 : last + 1;
    pairs[end / 64] |= ~uint64_t{0} << end % 64;
    std::fill(pairs.begin() + end / 64 + 1, pairs.begin() + word + 1, ~uint64_t{0});
}
