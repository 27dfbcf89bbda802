#include <cmath>

#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/sound/SoundHandler.h"
#include "engine/sound/SoundMixer.h"
#include "engine/sound/SoundReader.h"
#include "tests/engine/graphics/Pictures.h"
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
    for (int32_t count = 0; count < 3; ++count)
        mixer.play(sound({30000, -30000}));
    EXPECT_EQ(mixed(mixer, 2), (Samples{32767, -32768})) << "cut where it is too loud";
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

/// A WAV file around samples that are 8 bit without a sign, or 16 bit with one.
std::string wavFile(const std::string& samples, uint32_t rate, uint32_t channels, uint32_t bits) {
    const auto size = static_cast<uint32_t>(samples.size());
    const uint32_t frame = channels * bits / 8;
    Bytes file;
    file.text("RIFF").u32(36 + size).text("WAVEfmt ").u32(16);
    file.u16(1).u16(channels).u32(rate).u32(rate * frame).u16(frame).u16(bits); // PCM
    return file.text("data").u32(size).text(samples);
}

/// 8 bit mono, loud and constant.
std::string wavFile(uint32_t frames, uint32_t rate = 22050) {
    return wavFile(std::string(frames, '\xC0'), rate, 1, 8);
}

constexpr double Amplitude = 12000;                  // of the range of 16 bits
constexpr double Omega = 2 * 3.14159265358979 * 441; // of 441 Hz

/// A second of a sine wave, the same in all channels.
std::string sineFile(uint32_t rate, uint32_t channels, uint32_t bits) {
    Bytes samples;
    for (uint32_t frame = 0; frame < rate; ++frame) {
        const double value = Amplitude * std::sin(Omega * frame / rate);
        const auto sample =
            static_cast<uint32_t>(std::lround(bits == 8 ? value / 256 + 128 : value));
        for (uint32_t channel = 0; channel < channels; ++channel)
            bits == 8 ? samples.u8(sample) : samples.u16(sample);
    }
    return wavFile(samples, rate, channels, bits);
}

TEST(SoundReader, KeepsLengthAndPitchAtEveryRate) {
    const TemporaryFolder folder;
    for (const uint32_t rate : {8000U, 11025U, 16000U, 22050U, 32000U, 44100U, 48000U, 96000U})
        for (const uint32_t channels : {1U, 2U})
            for (const uint32_t bits : {8U, 16U}) {
                const auto read =
                    readSound(folder.write("sine.wav", sineFile(rate, channels, bits)));
                ASSERT_NE(read, nullptr) << rate;
                ASSERT_EQ(read->samples.size(), 2U * SoundRate) << rate << " a second";
                // Linear interpolation cuts that much off the wave, and rounding adds half a step.
                const double margin =
                    Amplitude * std::pow(Omega / rate, 2) / 8 + (bits == 8 ? 129 : 2);
                double worst = 0;
                // After the last sample of the slowest rate there are no more lines.
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
        << "between two samples, and after the last";
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

// The sizes that SDL gets never exceed the file: it allocates by them.
TEST(SoundReader, RefusesPartsThatClaimTooMuch) {
    const TemporaryFolder folder;
    const std::string whole = wavFile("1234567", 44100, 1, 8);
    const auto frames = [&](std::string bytes, size_t place, std::string_view size) {
        bytes.replace(place, size.size(), size);
        const auto read = readSound(folder.write("claim.wav", bytes));
        return read == nullptr ? 0 : static_cast<int32_t>(read->samples.size() / 2);
    };
    ASSERT_EQ(whole.size(), 51U);
    EXPECT_EQ(frames(whole, 40, {"\x07\0\0\0", 4}), 7);
    EXPECT_EQ(frames(whole, 40, {"\x06\0\0\0", 4}), 6);
    EXPECT_EQ(frames(whole, 4, {"\xFF\xFF\xFF\xFF", 4}), 7) << "the size of all is not used";
    for (const std::string_view size : {std::string_view("\x08\0\0\0", 4), {"\0\0\0\xFF", 4}}) {
        EXPECT_EQ(frames(whole, 40, size), 0) << "samples";
        EXPECT_EQ(frames(whole, 16, size), 0) << "format";
    }
    EXPECT_EQ(frames(whole, 20, {"\x02\0", 2}), 0) << "compressed";
    const std::string list("LIST\x03\0\0\0abc\0", 12);
    EXPECT_EQ(frames(whole.substr(0, 36) + list + whole.substr(36), 0, "RIFF"), 7)
        << "a part of odd length is followed by a fill byte";
    EXPECT_EQ(frames(whole.substr(0, 36) + list + whole.substr(36), 42, "\x01"), 0);
    EXPECT_EQ(frames(whole + "LIST", 0, "RIFF"), 7);
}

class SoundHandlerTest : public testing::Test {
protected:
    SoundHandlerTest() {
        // An audio device that plays nothing.
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
    for (const auto& [wanted, kept] : {std::pair(1000, 255), {-1, 0}, {100, 100}}) {
        handler.setVolume(wanted);
        EXPECT_EQ(handler.getVolume(), kept);
    }
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
    EXPECT_TRUE(handler.hasDevice()) << "it begins again";
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

TEST_F(SoundHandlerTest, SaysOnceWhatItCannotLoad) {
    const std::string missing = folder.file("missing.wav");
    LogCapture log;
    handler.play(missing);
    handler.play(missing);
    EXPECT_FALSE(handler.load(missing));
    EXPECT_EQ(log.linesWith("Cannot load sound"), 1);
    EXPECT_FALSE(handler.hasDevice());
    EXPECT_EQ(handler.getPlayingCount(), 0);
    const std::string whole = wavFile(64);
    for (size_t length = 0; length < whole.size(); ++length)
        handler.play(folder.write("cut" + std::to_string(length), whole.substr(0, length)));
    EXPECT_FALSE(handler.load(folder.write("text.wav", "RIFF, and other words")));
    EXPECT_FALSE(handler.load(folder.write("still.wav", wavFile(64, 0)))) << "no rate";
    EXPECT_FALSE(handler.load(folder.write("empty.wav", wavFile(0))));
}

} // namespace

} // namespace zel
