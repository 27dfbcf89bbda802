#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "engine/core/String.h"

namespace zel {

class SoundMixer;
struct SoundSamples;

/// Sounds from WAV files, mixed into the system's audio output: 16 bit stereo, several at once, one
/// volume for all.
///
/// The audio device is opened when the first sound is loaded. Without a device sounds load and play
/// as usual, unheard. While sounds are switched off, no file is read and no device is opened.
class SoundHandler {
public:
    static SoundHandler& getInstance();

    /// Loads a file in advance, once. False while sounds are off. On error: false, and once a file
    /// a log line.
    bool load(const String& file);
    /// Starts the sound from its beginning, loading it if need be, in addition to those that play.
    /// If all voices are busy, the oldest one ends.
    void play(const String& file);
    /// Ends all sounds; they stay loaded.
    void stopAll();
    /// The player's switch, initially on. Off ends all sounds at once and closes the device; loaded
    /// sounds are kept.
    void setEnabled(bool isOn);
    /// 0 (silent) to 255 (as recorded), initially 255. Values outside are clamped.
    void setVolume(int32_t volume);
    int32_t getVolume() const { return volume; }
    int32_t getPlayingCount() const; // sounds that play
    bool hasDevice() const { return deviceOpen; }

    /// Pauses and resumes the device, while the application is suspended.
    void suspend();
    void resume();
    /// Ends all sounds, forgets the files and closes the device. Switch and volume stay.
    void clear();

private:
    SoundHandler();
    ~SoundHandler() = default;

    void openDevice();
    void closeDevice();

    std::unique_ptr<SoundMixer> mixer;
    std::map<String, std::shared_ptr<const SoundSamples>> sounds; // null for one that failed
    int32_t volume = 255;
    bool enabled = true;
    bool deviceOpen = false;
    bool deviceTried = false;
};

} // namespace zel
