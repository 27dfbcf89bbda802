#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/sound/SoundHandler.h"
#include "engine/sound/SoundMixer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace zel {

namespace {

std::shared_ptr<const SoundSamples> sound(std::vector<int16_t> samples) {
    return std::make_shared<SoundSamples>(SoundSamples{std::move(samples)});
}

std::vector<int16_t> mixed(SoundMixer& mixer, size_t count) {
    std::vector<int16_t> output(count, 99);
    mixer.mix(output.data(), count);
    return output;
}
using Samples = std::vector<int16_t>;

TEST(SoundMixer, AddsUpWhatPlays) {
    SoundMixer mixer;
    EXPECT_EQ(mixed(mixer, 2), (Samples{0, 0}));
    mixer.play(sound({1, 2, 3, 4}));
    EXPECT_EQ(mixed(mixer, 2), (Samples{1, 2}));
    mixer.play(sound({10, 20, 30, 40, 50, 60}));
    EXPECT_EQ(mixed(mixer, 4), (Samples{13, 24, 30, 40}));
    EXPECT_EQ(mixer.getPlayingCount(), 1);
    EXPECT_EQ(mixed(mixer, 4), (Samples{50, 60, 0, 0}));
    EXPECT_EQ(mixer.getPlayingCount(), 0);
}

TEST(SoundMixer, CutsWhatIsTooLoud) {
    SoundMixer mixer;
    for (int32_t count = 0; count < 3; ++count)
        mixer.play(sound({30000, -30000}));
    EXPECT_EQ(mixed(mixer, 2), (Samples{32767, -32768}));
}

TEST(SoundMixer, HasOneVolume) {
    SoundMixer mixer;
    mixer.setVolume(51);
    mixer.play(sound({1000, -1000}));
    EXPECT_EQ(mixed(mixer, 2), (Samples{200, -200})) << "a fifth";
    mixer.setVolume(0);
    mixer.play(sound({1000, -1000}));
    EXPECT_EQ(mixed(mixer, 2), (Samples{0, 0}));
}

TEST(SoundMixer, TheOldestVoiceGivesWay) {
    SoundMixer mixer;
    mixer.play(sound(Samples(8, 1000)));
    for (size_t voice = 1; voice < SoundMixer::VoiceCount; ++voice)
        mixer.play(sound(Samples(8, 1)));
    EXPECT_EQ(mixed(mixer, 2)[0], 1015);
    mixer.play(sound(Samples(8, 1)));
    EXPECT_EQ(mixed(mixer, 2)[0], 16);
    EXPECT_EQ(mixer.getPlayingCount(), 16);
    mixer.play(nullptr);
    mixer.play(sound({}));
    EXPECT_EQ(mixed(mixer, 2)[0], 16) << "nothing to play ends nothing";
    mixer.stopAll();
    EXPECT_EQ(mixer.getPlayingCount(), 0);
}

void append(std::string& file, uint32_t value, int32_t bytes) {
    for (; bytes > 0; --bytes, value >>= 8)
        file += static_cast<char>(value);
}

/// A WAV file of `frames` frames of 8 bit mono.
std::string wavFile(uint32_t frames, uint32_t rate = 22050) {
    std::string file = "RIFF";
    append(file, 36 + frames, 4);
    file += "WAVEfmt ";
    append(file, 16, 4);
    append(file, 1, 2); // PCM
    append(file, 1, 2); // one channel
    append(file, rate, 4);
    append(file, rate, 4);
    append(file, 1, 2);
    append(file, 8, 2);
    file += "data";
    append(file, frames, 4);
    file += std::string(frames, '\xC0');
    return file;
}

class SoundHandlerTest : public testing::Test {
protected:
    SoundHandlerTest() {
        // A device that plays to nobody.
        static char driver[] = "SDL_AUDIODRIVER=dummy";
        SDL_putenv(driver);
    }
    ~SoundHandlerTest() override {
        handler.clear();
        handler.setVolume(255);
    }

    TemporaryFolder folder;
    SoundHandler& handler = SoundHandler::getInstance();
};

TEST_F(SoundHandlerTest, OpensTheDeviceForTheFirstSound) {
    EXPECT_FALSE(handler.hasDevice());
    handler.stopAll();
    handler.setVolume(100);
    EXPECT_FALSE(handler.hasDevice());
    const std::string file = folder.write("hit.wav", wavFile(4000));
    EXPECT_TRUE(handler.load(file));
    EXPECT_TRUE(handler.hasDevice());
    handler.play(file);
    handler.play(file);
    EXPECT_EQ(handler.getPlayingCount(), 2);
    handler.clear();
    EXPECT_FALSE(handler.hasDevice());
    EXPECT_EQ(handler.getPlayingCount(), 0);
    handler.play(file);
    EXPECT_TRUE(handler.hasDevice()) << "it begins anew";
}

TEST_F(SoundHandlerTest, TheDeviceTakesWhatPlays) {
    handler.play(folder.write("short.wav", wavFile(500)));
    for (int32_t count = 0; count < 200 && handler.getPlayingCount() > 0; ++count)
        system::sleepMilliseconds(10);
    EXPECT_EQ(handler.getPlayingCount(), 0);
}

TEST_F(SoundHandlerTest, SaysOnceWhatItCannotLoad) {
    const std::string missing = folder.file("missing.wav");
    LogCapture log;
    handler.play(missing);
    handler.play(missing);
    EXPECT_FALSE(handler.load(missing));
    EXPECT_EQ(log.linesWith("Cannot load sound"), 1);
    EXPECT_FALSE(handler.hasDevice());
    EXPECT_EQ(handler.getPlayingCount(), 0);
}

TEST_F(SoundHandlerTest, TakesFilesThatAreCutOrNotSounds) {
    LogCapture log;
    const std::string whole = wavFile(64);
    for (size_t length = 0; length < whole.size(); ++length)
        handler.play(folder.write("cut" + std::to_string(length), whole.substr(0, length)));
    EXPECT_FALSE(handler.load(folder.write("text.wav", "RIFF, and other words")));
    EXPECT_FALSE(handler.load(folder.write("still.wav", wavFile(64, 0)))) << "no rate";
    EXPECT_FALSE(handler.load(folder.write("empty.wav", wavFile(0))));
}

TEST_F(SoundHandlerTest, KeepsItsVolumeInRange) {
    handler.setVolume(1000);
    EXPECT_EQ(handler.getVolume(), 255);
    handler.setVolume(-1);
    EXPECT_EQ(handler.getVolume(), 0);
}

} // namespace

} // namespace zel
