#include "engine/sound/SoundMixer.h"

#include <algorithm>

namespace zel {

void SoundMixer::play(std::shared_ptr<const SoundSamples> sound) {
    if (sound == nullptr || sound->samples.empty())
        return;
    // A silent voice counts as the oldest of all.
    const auto age = [](const Voice& voice) { return voice.sound != nullptr ? voice.order : 0; };
    const auto oldest =
        std::min_element(voices.begin(), voices.end(),
                         [&age](const Voice& a, const Voice& b) { return age(a) < age(b); });
    *oldest = {std::move(sound), 0, ++lastOrder};
}

void SoundMixer::stopAll() { voices.fill({}); }

int32_t SoundMixer::getPlayingCount() const {
    return static_cast<int32_t>(std::count_if(
        voices.begin(), voices.end(), [](const Voice& voice) { return voice.sound != nullptr; }));
}

void SoundMixer::mix(int16_t* output, size_t count) {
    sums.assign(count, 0);
    for (Voice& voice : voices) {
        if (voice.sound == nullptr)
            continue;
        const std::vector<int16_t>& samples = voice.sound->samples;
        const size_t length = std::min(count, samples.size() - voice.position);
        for (size_t place = 0; place < length; ++place)
            sums[place] += samples[voice.position + place];
        voice.position += length;
        if (voice.position == samples.size())
            voice = {};
    }
    for (size_t place = 0; place < count; ++place)
        output[place] = static_cast<int16_t>(std::clamp(int64_t(sums[place]) * volume / FullVolume,
                                                        int64_t(INT16_MIN), int64_t(INT16_MAX)));
}

} // namespace zel
