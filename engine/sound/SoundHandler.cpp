#include "engine/sound/SoundHandler.h"

#include <algorithm>
#include <cstring>

#include <SDL.h>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"
#include "engine/sound/SoundMixer.h"

namespace zel {

namespace {

constexpr const char* Category = "SoundHandler";
constexpr int32_t MostBytes = 64 << 20; // of a file, far more than a sound of a menu takes
constexpr uint16_t BufferFrames = 1024; // 23 ms at SoundRate

void fillBuffer(void* mixer, uint8_t* stream, int byteCount) {
    static_cast<SoundMixer*>(mixer)->mix(reinterpret_cast<int16_t*>(stream),
                                         static_cast<size_t>(byteCount) / sizeof(int16_t));
}

/// Brings a sound into the form that is mixed. Empty if SDL knows no way.
std::vector<int16_t> converted(const SDL_AudioSpec& spec, const uint8_t* data, uint32_t size) {
    SDL_AudioCVT conversion;
    if (SDL_BuildAudioCVT(&conversion, spec.format, spec.channels, spec.freq, AUDIO_S16SYS, 2,
                          SoundRate) < 0)
        return {};
    std::vector<uint8_t> buffer(size_t(size) *
                                static_cast<size_t>(std::max(1, conversion.len_mult)));
    if (size == 0)
        return {};
    std::memcpy(buffer.data(), data, size);
    conversion.buf = buffer.data();
    conversion.len = static_cast<int>(size);
    conversion.len_cvt = conversion.len; // what remains where nothing is to be done
    if (conversion.needed != 0 && SDL_ConvertAudio(&conversion) != 0)
        return {};
    // Whole pairs of left and right.
    std::vector<int16_t> samples(static_cast<size_t>(conversion.len_cvt) / 4 * 2);
    std::memcpy(samples.data(), buffer.data(), samples.size() * sizeof(int16_t));
    return samples;
}

std::shared_ptr<const SoundSamples> readWav(const String& fileName) {
    File file(fileName, FileRead);
    std::string content;
    if (file.hasFailed() || file.fileSize() > MostBytes || !file.readWhole(content))
        return nullptr;
    SDL_RWops* source = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
    SDL_AudioSpec spec;
    uint8_t* data = nullptr;
    uint32_t size = 0;
    if (source == nullptr || SDL_LoadWAV_RW(source, 1, &spec, &data, &size) == nullptr)
        return nullptr;
    const bool isSound = spec.channels > 0 && spec.freq > 0;
    auto sound = std::make_shared<SoundSamples>();
    if (isSound)
        sound->samples = converted(spec, data, size);
    SDL_FreeWAV(data);
    return sound->samples.empty() ? nullptr : sound;
}

/// The mixer belongs to the device's thread while this lives.
class DeviceLock {
public:
    explicit DeviceLock(bool needed) : needed(needed) {
        if (needed)
            SDL_LockAudio();
    }
    ~DeviceLock() {
        if (needed)
            SDL_UnlockAudio();
    }
    DeviceLock(const DeviceLock&) = delete;
    DeviceLock& operator=(const DeviceLock&) = delete;

private:
    bool needed;
};

} // namespace

// Never taken down by the process's end: the loop does it before SDL goes.
SoundHandler& SoundHandler::getInstance() {
    static auto* const handler = new SoundHandler;
    return *handler;
}

SoundHandler::SoundHandler() : mixer(std::make_unique<SoundMixer>()) {
    setShutdownStep(ShutdownStep::Sounds, [] { getInstance().clear(); });
    setSuspendStep(
        ShutdownStep::Sounds, [] { getInstance().suspend(); }, [] { getInstance().resume(); });
}

SoundHandler::~SoundHandler() { closeDevice(); }

void SoundHandler::openDevice() {
    if (deviceTried)
        return;
    deviceTried = true;
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0 && SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        log(String("No audio: ") + SDL_GetError(), Category, LogInfo);
        return;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = SoundRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = BufferFrames;
    wanted.callback = fillBuffer;
    wanted.userdata = mixer.get();
    // Without a place for what the device would take instead, SDL converts to it by itself.
    if (SDL_OpenAudio(&wanted, nullptr) != 0) {
        log(String("No audio: ") + SDL_GetError(), Category, LogInfo);
        return;
    }
    deviceOpen = true;
    SDL_PauseAudio(0);
}

void SoundHandler::closeDevice() {
    if (deviceOpen)
        SDL_CloseAudio();
    deviceOpen = false;
    deviceTried = false;
}

bool SoundHandler::load(const String& file) {
    const auto known = sounds.find(file);
    if (known != sounds.end())
        return known->second != nullptr;
    const auto& sound = sounds[file] = readWav(file);
    if (sound == nullptr) {
        log("Cannot load sound " + file, Category, LogWarning);
        return false;
    }
    openDevice();
    return true;
}

void SoundHandler::play(const String& file) {
    if (!load(file))
        return;
    const DeviceLock lock(deviceOpen);
    mixer->play(sounds[file]);
}

void SoundHandler::stopAll() {
    const DeviceLock lock(deviceOpen);
    mixer->stopAll();
}

void SoundHandler::setVolume(int32_t newVolume) {
    volume = std::clamp(newVolume, 0, SoundMixer::FullVolume);
    const DeviceLock lock(deviceOpen);
    mixer->setVolume(volume);
}

int32_t SoundHandler::getPlayingCount() const {
    const DeviceLock lock(deviceOpen);
    return mixer->getPlayingCount();
}

void SoundHandler::suspend() {
    if (deviceOpen)
        SDL_PauseAudio(1);
}

void SoundHandler::resume() {
    if (deviceOpen)
        SDL_PauseAudio(0);
}

void SoundHandler::clear() {
    closeDevice();
    mixer->stopAll();
    sounds.clear();
}

} // namespace zel
