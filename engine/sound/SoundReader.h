#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/core/String.h"
#include "engine/sound/SoundMixer.h"

namespace zel {

/// The format of a recording's samples in memory.
struct SoundForm {
    int32_t rate = SoundRate; // frames a second
    int32_t channels = 2;     // samples of a frame; the first two are left and right
    int32_t bits = 16;        // of a sample: 8 or 16
    bool isSigned = true;     // otherwise silence is the middle of the range
    bool isBigEndian = false;
};

/// Converts a recording into the form that is mixed. One channel is heard on both sides; of more
/// than two the first two are taken. Other rates are converted to SoundRate by linear
/// interpolation, so that length and pitch stay. A partial frame at the end is dropped. Empty for
/// an invalid format, and for more than ten minutes.
SoundSamples convertSound(const SoundForm& form, std::string_view recording);

/// Reads a WAV file. On error: null; no log line.
std::shared_ptr<const SoundSamples> readSound(const String& fileName);

} // namespace zel
