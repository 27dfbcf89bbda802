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
/// The audio device is opened when the first sound is loaded. Where there is none, sounds load and
/// play as ever, unheard. While sounds are switched off no file is read and no device opened.
class SoundHandler {
public:
    static SoundHandler& getInstance();

    /// Loads a file unless it is there already, so that it needn't be read when it is played. False
    /// while sounds are off. On error: a log line, once a file, and false.
    bool load(const String& file);
    /// Starts the sound from its beginning, loading it if need be, over whatever plays. With all
    /// voices busy the oldest one ends.
    void play(const String& file);
    void stopAll();
    /// The player's switch, on at first. Off ends all sounds at once and closes the device; what
    /// was loaded stays for when it goes on again.
    void setEnabled(bool isOn);
    /// 0 silent to 255 as recorded; 255 at first. Values outside are cut.
    void setVolume(int32_t volume);
    int32_t getVolume() const { return volume; }
    int32_t getPlayingCount() const;
    bool hasDevice() const { return deviceOpen; }

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
    std::map<String, std::shared_ptr<const SoundSamples>> sounds; // null for one that can't load
    int32_t volume = 255;
    bool enabled = true;
    bool deviceOpen = false;
    bool deviceTried = false;
};

} // namespace zel
