#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zel {

constexpr int32_t SoundRate = 44100; // frames a second of everything that is mixed

/// A sound in the form that is mixed: 16 bit, left and right alternating, at SoundRate.
struct SoundSamples {
    std::vector<int16_t> samples;
};

/// Mixes the sounds that play. It knows no device; its user must let only one thread in at a time.
class SoundMixer {
public:
    static constexpr size_t VoiceCount = 16;
    static constexpr int32_t FullVolume = 255;

    /// Plays the sound from its beginning; if all voices are busy, the oldest one ends.
    void play(std::shared_ptr<const SoundSamples> sound);
    void stopAll();
    void setVolume(int32_t newVolume) { volume = newVolume; } // 0 to FullVolume
    int32_t getPlayingCount() const;
    /// Fills `count` samples, left and right alternating, and moves on. Silence where nothing
    /// plays; sums out of range are clamped.
    void mix(int16_t* output, size_t count);

private:
    struct Voice {
        std::shared_ptr<const SoundSamples> sound; // null: silent
        size_t position = 0;                       // samples
        uint64_t order = 0;                        // higher for a later start
    };

    std::array<Voice, VoiceCount> voices;
    std::vector<int32_t> sums;
    uint64_t lastOrder = 0;
    int32_t volume = FullVolume;
};

} // namespace zel
