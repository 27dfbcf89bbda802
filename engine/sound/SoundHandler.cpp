#include "engine/sound/SoundHandler.h"

#include <algorithm>

#include <SDL.h>

#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"
#include "engine/sound/SoundMixer.h"
#include "engine/sound/SoundReader.h"

namespace zel {

namespace {

constexpr const char* Category = "SoundHandler";
constexpr uint16_t BufferFrames = 1024; // 23 ms at SoundRate

void fillBuffer(void* mixer, uint8_t* stream, int byteCount) {
    static_cast<SoundMixer*>(mixer)->mix(reinterpret_cast<int16_t*>(stream),
                                         static_cast<size_t>(byteCount) / sizeof(int16_t));
}

/// Locks the device's thread out of the mixer.
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

// Not destroyed at the end of the process: the loop closes it before SDL ends.
SoundHandler& SoundHandler::getInstance() {
    static auto* const handler = new SoundHandler;
    return *handler;
}

SoundHandler::SoundHandler() : mixer(std::make_unique<SoundMixer>()) {
    setShutdownStep(ShutdownStep::Sounds, [] { getInstance().clear(); });
    setSuspendStep(
        ShutdownStep::Sounds, [] { getInstance().suspend(); }, [] { getInstance().resume(); });
}

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
    // With null for the obtained format SDL converts to the device's by itself.
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
    if (!enabled)
        return false;
    const auto [known, isNew] = sounds.try_emplace(file);
    if (isNew && (known->second = readSound(file)) == nullptr)
        log("Cannot load sound " + file, Category, LogWarning);
    if (known->second == nullptr)
        return false;
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

void SoundHandler::setEnabled(bool isOn) {
    enabled = isOn;
    if (enabled)
        return;
    closeDevice();
    mixer->stopAll();
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
