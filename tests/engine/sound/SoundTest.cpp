#include <cmath>

#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/sound/SoundHandler.h"
#include "engine/sound/SoundMixer.h"
#include "engine/sound/SoundReader.h"
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

void append(std::string& bytes, int64_t value, int32_t count) {
    for (; count > 0; --count, value >>= 8)
        bytes += static_cast<char>(value);
}

/// A WAV file around samples that are 8 bit without a sign, or 16 bit with one.
std::string wavFile(const std::string& samples, int32_t rate, int32_t channels, int32_t bits) {
    const auto size = static_cast<int64_t>(samples.size());
    std::string file = "RIFF";
    append(file, 36 + size, 4);
    file += "WAVEfmt ";
    append(file, 16, 4);
    append(file, 1, 2); // PCM
    append(file, channels, 2);
    append(file, rate, 4);
    append(file, int64_t(rate) * channels * bits / 8, 4);
    append(file, channels * bits / 8, 2);
    append(file, bits, 2);
    file += "data";
    append(file, size, 4);
    return file + samples;
}

/// 8 bit mono, loud and constant.
std::string wavFile(uint32_t frames, int32_t rate = 22050) {
    return wavFile(std::string(frames, '\xC0'), rate, 1, 8);
}

constexpr double Amplitude = 12000;                  // of the range of 16 bits
constexpr double Omega = 2 * 3.14159265358979 * 441; // of 441 Hz

/// A second of a sine wave, the same in all channels.
std::string sineFile(int32_t rate, int32_t channels, int32_t bits) {
    std::string samples;
    for (int32_t frame = 0; frame < rate; ++frame) {
        const double value = Amplitude * std::sin(Omega * frame / rate);
        const int64_t sample = std::lround(bits == 8 ? value / 256 + 128 : value);
        for (int32_t channel = 0; channel < channels; ++channel)
            append(samples, sample, bits / 8);
    }
    return wavFile(samples, rate, channels, bits);
}

TEST(SoundReader, KeepsLengthAndPitchAtEveryRate) {
    const TemporaryFolder folder;
    for (const int32_t rate : {8000, 11025, 16000, 22050, 32000, 44100, 48000, 96000})
        for (const int32_t channels : {1, 2})
            for (const int32_t bits : {8, 16}) {
                const auto read =
                    readSound(folder.write("sine.wav", sineFile(rate, channels, bits)));
                ASSERT_NE(read, nullptr) << rate;
                ASSERT_EQ(read->samples.size(), 2U * SoundRate) << rate << " a second";
                // A straight line cuts that much off the wave, and rounding half a step.
                const double margin =
                    Amplitude * std::pow(Omega / rate, 2) / 8 + (bits == 8 ? 129 : 2);
                double worst = 0;
                // Behind the last sample of the slowest rate there are no more lines.
                for (int32_t frame = 0; frame < SoundRate - 6; ++frame)
                    for (const int32_t side : {0, 1}) {
                        const auto place = static_cast<size_t>(frame * 2 + side);
                        const double wave = Amplitude * std::sin(Omega * frame / SoundRate);
                        worst = std::max(worst, std::abs(read->samples[place] - wave));
                    }
                EXPECT_LT(worst, margin) << rate << ' ' << channels << ' ' << bits;
            }
}

TEST(SoundReader, TakesEveryFormOfSamples) {
    const auto converted = [](const SoundForm& form, std::string_view recording) {
        return convertSound(form, recording).samples;
    };
    const std::string_view bytes("\x80\x00\xFF\x7F", 4);
    EXPECT_EQ(converted({SoundRate, 1, 8, false, false}, bytes),
              (Samples{0, 0, -32768, -32768, 32512, 32512, -256, -256}));
    EXPECT_EQ(converted({SoundRate, 2, 8, true, false}, bytes), (Samples{-32768, 0, -256, 32512}));
    EXPECT_EQ(converted({SoundRate, 2, 16, true, false}, bytes), (Samples{128, 32767}));
    EXPECT_EQ(converted({SoundRate, 2, 16, true, true}, bytes), (Samples{-32768, -129}));
    EXPECT_EQ(converted({SoundRate, 2, 16, false, true}, bytes), (Samples{0, 32639}));
    EXPECT_EQ(converted({SoundRate, 4, 8, false, false}, bytes), (Samples{0, -32768}))
        << "the first two of many channels";
    EXPECT_EQ(converted({SoundRate / 2, 1, 8, false, false}, bytes.substr(0, 2)),
              (Samples{0, 0, -16384, -16384, -32768, -32768, -32768, -32768}))
        << "between two samples, and behind the last";
}

TEST(SoundReader, RefusesWhatMakesNoSense) {
    const std::string bytes(400, 'x');
    for (const SoundForm& form : {SoundForm{0, 1, 8, false, false},
                                  {-1, 1, 8, false, false},
                                  {44100, 0, 8, false, false},
                                  {44100, 1, 0, false, false},
                                  {44100, 1, 24, false, false},
                                  {1, 1, 8, false, false}})
        EXPECT_TRUE(convertSound(form, bytes + bytes).samples.empty()) << form.rate;
    EXPECT_EQ(convertSound({40, 1, 8, false, false}, bytes).samples.size(), 10U * 2 * SoundRate);
    EXPECT_TRUE(convertSound({}, "abc").samples.empty()) << "less than a frame";
    EXPECT_EQ(convertSound({}, "abcdefg").samples.size(), 2U) << "one and a part of one";
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
        handler.setEnabled(true);
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

TEST_F(SoundHandlerTest, TouchesNothingWhileItIsOff) {
    const std::string file = folder.write("hit.wav", wavFile(40000));
    handler.setEnabled(false);
    const LogCapture log;
    EXPECT_FALSE(handler.load(file));
    handler.play(file);
    handler.play(folder.file("missing.wav"));
    EXPECT_FALSE(handler.hasDevice());
    EXPECT_EQ(log.text(), "") << "nothing was read";
    handler.setEnabled(true);
    EXPECT_FALSE(handler.hasDevice()) << "not before there is a sound";
    handler.play(file);
    EXPECT_TRUE(handler.hasDevice());
    EXPECT_EQ(handler.getPlayingCount(), 1);
    handler.setEnabled(false);
    EXPECT_FALSE(handler.hasDevice());
    EXPECT_EQ(handler.getPlayingCount(), 0);
    handler.setEnabled(true);
    EXPECT_TRUE(handler.load(file));
    EXPECT_TRUE(handler.hasDevice()) << "also for a sound that was there";
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
