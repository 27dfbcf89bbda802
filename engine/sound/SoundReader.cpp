#include "engine/sound/SoundReader.h"

#include <algorithm>
#include <string>

#include <SDL.h>

#include "engine/core/File.h"

namespace zel {

namespace {

constexpr int32_t MostBytes = 64 << 20; // of a file, far more than a menu's sound needs
constexpr int64_t MostFrames = int64_t(SoundRate) * 600;

/// The frames of a recording of any format.
class Recording {
public:
    Recording(const SoundForm& form, std::string_view bytes) : form(form), bytes(bytes) {}

    int64_t frameCount() const { return static_cast<int64_t>(bytes.size() / frameSize()); }
    /// side: 0 left, 1 right.
    int32_t at(int64_t frame, int32_t side) const {
        const int32_t channel = std::min(side, form.channels - 1);
        return sample(static_cast<size_t>(frame) * frameSize() +
                      static_cast<size_t>(channel) * sampleSize());
    }

private:
    size_t sampleSize() const { return static_cast<size_t>(form.bits / 8); }
    size_t frameSize() const { return sampleSize() * static_cast<size_t>(form.channels); }
    /// Converted to 16 bits with a sign.
    int32_t sample(size_t place) const {
        const auto byte = [this](size_t at) { return int32_t(static_cast<uint8_t>(bytes[at])); };
        int32_t value = byte(place) << 8;
        if (form.bits == 16)
            value = form.isBigEndian ? value | byte(place + 1) : value >> 8 | byte(place + 1) << 8;
        return form.isSigned ? static_cast<int16_t>(value) : value + INT16_MIN;
    }

    SoundForm form;
    std::string_view bytes;
};

/// SDL encodes sign, byte order and bits of a sample in one number.
SoundForm formOf(const SDL_AudioSpec& spec) {
    return {spec.freq, spec.channels, spec.format & 0xFF, (spec.format & 0x8000) != 0,
            (spec.format & 0x1000) != 0};
}

uint32_t numberAt(std::string_view bytes, size_t place, size_t size) {
    uint32_t number = 0;
    for (size_t i = size; i-- > 0;)
        number = number << 8 | static_cast<uint8_t>(bytes[place + i]);
    return number;
}

/// The file with only the two chunks that matter, their sizes verified: SDL allocates what a chunk
/// claims before it reads it. Empty for another kind of file, a chunk that claims more than the
/// file holds, and samples that are compressed.
std::string soundChunks(std::string_view file) {
    constexpr size_t HeadSize = 8;    // of a chunk: name and size
    constexpr size_t FormatSize = 16; // at least
    constexpr uint32_t Uncompressed = 1;
    if (file.size() < 12 || file.substr(0, 4) != "RIFF" || file.substr(8, 4) != "WAVE")
        return {};
    std::string chunks(file.substr(0, 12));
    for (std::string_view rest = file.substr(12); rest.size() >= HeadSize;) {
        const std::string_view name = rest.substr(0, 4);
        const size_t size = numberAt(rest, 4, 4);
        if (size > rest.size() - HeadSize)
            return {};
        const bool isFormat = name == "fmt ";
        if (isFormat && (size < FormatSize || numberAt(rest, HeadSize, 2) != Uncompressed))
            return {};
        if (isFormat || name == "data")
            chunks += rest.substr(0, HeadSize + size);
        if (name == "data")
            return chunks;
        rest.remove_prefix(std::min(HeadSize + size + size % 2, rest.size())); // even places
    }
    return {};
}

} // namespace

// SDL isn't used for this: it only doubles or halves a rate, so the sound would come out too high
// or too low.
SoundSamples convertSound(const SoundForm& form, std::string_view recording) {
    if (form.rate < 1 || form.channels < 1 || (form.bits != 8 && form.bits != 16))
        return {};
    const Recording from(form, recording);
    const int64_t frames = from.frameCount();
    const int64_t count = (frames * SoundRate + form.rate - 1) / form.rate;
    if (count > MostFrames)
        return {};
    SoundSamples sound;
    sound.samples.reserve(static_cast<size_t>(count) * 2);
    for (int64_t i = 0; i < count; ++i) {
        const int64_t before = i * form.rate / SoundRate;
        const int64_t behind = std::min(before + 1, frames - 1);
        const int64_t part = i * form.rate % SoundRate;
        for (const int32_t side : {0, 1}) {
            const int64_t value = from.at(before, side);
            const int64_t step = from.at(behind, side) - value;
            sound.samples.push_back(static_cast<int16_t>(value + step * part / SoundRate));
        }
    }
    return sound;
}

std::shared_ptr<const SoundSamples> readSound(const String& fileName) {
    File file(fileName, FileRead);
    std::string content;
    if (file.hasFailed() || file.fileSize() > MostBytes || !file.readWhole(content))
        return nullptr;
    content = soundChunks(content);
    SDL_RWops* source = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
    SDL_AudioSpec spec;
    uint8_t* data = nullptr;
    uint32_t size = 0;
    if (source == nullptr || SDL_LoadWAV_RW(source, 1, &spec, &data, &size) == nullptr)
        return nullptr;
    auto sound = std::make_shared<SoundSamples>(
        convertSound(formOf(spec), {reinterpret_cast<const char*>(data), size}));
    SDL_FreeWAV(data);
    return sound->samples.empty() ? nullptr : sound;
}

} // namespace zel
