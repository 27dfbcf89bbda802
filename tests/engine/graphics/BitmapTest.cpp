#include "engine/graphics/Bitmap.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/Log.h"
#include "engine/graphics/DecoderGuard.h"
#include "engine/graphics/FormatANY.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;

// 2 x 2 with alpha: (1,2,3,255) (10,20,30,128) above (40,50,60,0) (255,0,254,7); made, like the
// next, by Pillow.
const std::string RgbaPng =
    "\x89PNG\x0D\x0A\x1A\x0A\x00\x00\x00\x0DIHDR\x00\x00\x00\x02\x00\x00\x00\x02\x08\x06\x00\x00\x00\x72\xB6\x0D\x24\x00\x00\x00\x1AIDAT\x78\xDA\x63\x66\x64\x62\xFE\xCF\x25\x2C\xCB\xC8\xA0\x61\x64\xC3\xF0\x9F\xE1\x1F\x3B\x00\x1B\x4C\x03\xDE\xBE\x50\x18\x10\x00\x00\x00\x00IEND\xAE\x42\x60\x82"s;
// 3 x 1, grey: 7 8 250.
const std::string GreyPng =
    "\x89PNG\x0D\x0A\x1A\x0A\x00\x00\x00\x0DIHDR\x00\x00\x00\x03\x00\x00\x00\x01\x08\x00\x00\x00\x00\x3E\x8B\x4B\x68\x00\x00\x00\x0CIDAT\x78\xDA\x63\x60\xE7\xF8\x05\x00\x01\x23\x01\x0A\x16\x89\x11\x1B\x00\x00\x00\x00IEND\xAE\x42\x60\x82"s;

// Two rows of two, bottom row first, blue first.
const std::string FourPixels = "\x03\x02\x01\x06\x05\x04\x09\x08\x07\x0C\x0B\x0A";

/// The part of a PNG file that gives its size, which is below 65536 pixels each way.
std::string pngHead(uint32_t width, uint32_t height) {
    const auto number = [](uint32_t value) {
        return "\0\0"s + static_cast<char>(value >> 8) + static_cast<char>(value);
    };
    return RgbaPng.substr(0, 16) + number(width) + number(height) + RgbaPng.substr(24, 9);
}

using Pixels = std::vector<uint32_t>;

class BitmapTest : public testing::Test {
protected:
    bool load(const std::string& content, bool powerOfTwo = false) {
        return bitmap.load(folder.write("picture", content), powerOfTwo);
    }
    std::string buffer() const {
        const auto& bytes = bitmap.getData().pixels;
        return {bytes.begin(), bytes.end()};
    }
    /// All pixels from the top.
    Pixels pixels() const {
        Pixels all;
        for (int32_t y = 0; y < bitmap.height(); ++y)
            for (int32_t x = 0; x < bitmap.width(); ++x)
                all.push_back(bitmap.pixelAt(x, y));
        return all;
    }

    TemporaryFolder folder;
    zel::Bitmap bitmap;
};

TEST_F(BitmapTest, ReadsTheRawFormFromTheBottomUp) {
    ASSERT_TRUE(load(zelFile(2, 2, 24, FourPixels, 21)));
    EXPECT_EQ(bitmap.width(), 2);
    EXPECT_EQ(bitmap.height(), 2);
    EXPECT_EQ(buffer(), FourPixels) << "no swap";
    EXPECT_EQ(pixels(), (Pixels{0xFF070809, 0xFF0A0B0C, 0xFF010203, 0xFF040506}))
        << "the first pixel of the file is the lower left";
    for (const auto& [x, y] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 2}})
        EXPECT_EQ(bitmap.pixelAt(x, y), 0u) << "outside";
    ASSERT_TRUE(load(zelFile(1, 1, 32, "\x10\x20\x30\x40")));
    EXPECT_EQ(bitmap.pixelAt(0, 0), 0x40302010u);
}

TEST_F(BitmapTest, PlacesAPictureInPowersOfTwo) {
    std::string file;
    std::string expected(14 * 384, '\0');
    for (char row = 1; row <= 50; ++row) {
        file += std::string(300, row);
        expected += std::string(300, row) + std::string(84, '\0');
    }
    ASSERT_TRUE(load(zelFile(100, 50, 24, file), true));
    EXPECT_EQ(bitmap.getData().width, 128);
    EXPECT_EQ(bitmap.getData().height, 64);
    EXPECT_EQ(bitmap.width(), 100);
    EXPECT_EQ(bitmap.height(), 50);
    EXPECT_EQ(buffer(), expected);
    EXPECT_EQ(bitmap.pixelAt(99, 0), 0xFF323232) << "the top line is the last one of the file";
    ASSERT_TRUE(load(zelFile(64, 32, 24, std::string(64 * 32 * 3, 'x')), true));
    EXPECT_EQ(bitmap.getData().width, 64);
    EXPECT_EQ(bitmap.getData().height, 32);
}

TEST_F(BitmapTest, ReadsWindowsBitmapsWithTheirPadding) {
    // Three pixels are 9 bytes, padded to 12.
    const std::string rows = "abcdefghi\0\0\0jklmnopqr\0\0\0"s;
    const Pixels bottomUp{0xFF6C6B6A, 0xFF6F6E6D, 0xFF727170, 0xFF636261, 0xFF666564, 0xFF696867};
    const Pixels topDown{0xFF636261, 0xFF666564, 0xFF696867, 0xFF6C6B6A, 0xFF6F6E6D, 0xFF727170};
    ASSERT_TRUE(load(bmpFile(3, 2, 24, rows)));
    EXPECT_EQ(pixels(), bottomUp) << "red last";
    ASSERT_TRUE(load(bmpFile(3, -2, 24, rows)));
    EXPECT_EQ(pixels(), topDown);
    ASSERT_TRUE(load(bmpFile(3, 2, 24, rows.substr(0, 21)), true)) << "no padding at the end";
    EXPECT_EQ(bitmap.getData().width, 4);
    EXPECT_EQ(pixels(), bottomUp);
    uint32_t line[3] = {};
    bitmap.getData().lineArgb(1, line);
    EXPECT_EQ(Pixels(line, line + 3), Pixels(bottomUp.begin() + 3, bottomUp.end()));
    ASSERT_TRUE(load(bmpFile(2, 1, 32, "abc\0def\0"s)));
    EXPECT_EQ(pixels(), (Pixels{0xFF636261, 0xFF666564})) << "no alpha in it";
    ASSERT_TRUE(load(bmpFile(2, 1, 32, "abc\0def\1"s)));
    EXPECT_EQ(pixels(), (Pixels{0x00636261, 0x01666564}));
}

TEST_F(BitmapTest, ReadsWhatTheDecoderKnows) {
    const LogCapture log;
    ASSERT_TRUE(load(RgbaPng, true));
    EXPECT_EQ(bitmap.getData().depth, 4);
    EXPECT_EQ(pixels(), (Pixels{0xFF010203, 0x800A141E, 0x0028323C, 0x07FF00FE}));
    EXPECT_EQ(buffer().substr(0, 4), "\x28\x32\x3C\0"s) << "bottom line first, red first";
    uint32_t line[3] = {};
    bitmap.getData().lineArgb(0, line);
    EXPECT_EQ(line[1], 0x800A141Eu);
    ASSERT_TRUE(load(GreyPng));
    EXPECT_EQ(bitmap.getData().depth, 3);
    EXPECT_EQ(pixels(), (Pixels{0xFF070707, 0xFF080808, 0xFFFAFAFA}));
    bitmap.getData().lineArgb(0, line);
    EXPECT_EQ(line[1], 0xFF080808);
    EXPECT_EQ(log.text(), "") << "readers that don't know the file aren't worth a line";
}

TEST_F(BitmapTest, LogsWhatIsWrong) {
    const struct {
        std::string content;
        std::string text;
    } cases[] = {
        {zelFile(1, 1, 16, "ab"), "[FormatZEL] ZEL depth unsupported"},
        {zelFile(0, 1, 24, ""), "/picture is empty: 0 by 1 pixels"},
        {zelFile(8193, 1, 24, ""), "/picture is too large: 8193 by 1 pixels, at most 8192 by 8192"},
        {bmpFile(8193, 1, 24, ""), "/picture is too large: 8193 by 1 pixels"},
        {pngHead(2, 8193), "/picture is too large: 2 by 8193 pixels"},
        {pngHead(8000, 8000), "/picture is damaged: 8000 by 8000 pixels in 33 bytes"},
        {bmpFile(1, 1, 24, "abc\0"s, 1), "[FormatBMP] Unsupported compression"},
        {bmpFile(1, 1, 16, "ab\0\0"s), "[FormatBMP] BMP depth unsupported"},
        {bmpFile(1, 0, 24, ""), "/picture is empty: 1 by 0 pixels"},
        {bmpFile(-1, 1, 24, "abc\0"s), "/picture is empty: -1 by 1 pixels"},
        {"", "[FormatANY] Cannot read file (filesize: 0)"},
        {zelFile(65, 1, 24, "ab"), "Read error for " + folder.path() + "/picture: Unable"},
        {"nothing", "/picture is not a picture"},
        {"nothing", "Illegal BMP header"},
        {"nothing", "Error for " + folder.path() + "/picture: Illegal ANY header"},
    };
    for (const auto& [content, text] : cases) {
        const LogCapture log(zel::LogDebug);
        load(content);
        EXPECT_TRUE(log.holds(text)) << text << " in\n" << log.text();
    }
    const LogCapture log;
    load(pngHead(2, 8193));
    EXPECT_EQ(log.linesWith("Error for"), 0) << "readers of other formats have nothing to add";
    EXPECT_FALSE(bitmap.load(folder.path() + "/none", false));
    EXPECT_TRUE(log.holds("[Bitmap] File " + folder.path() + "/none does not exist"));
    EXPECT_FALSE(bitmap.isLoaded());
    EXPECT_STREQ(zel::FormatANY(false).open(folder.path() + "/none"), "Cannot load file");
}

TEST_F(BitmapTest, RefusesFilesCutAtAnyLength) {
    const LogCapture silence(0);
    const std::string files[] = {zelFile(2, 3, 24, std::string(18, 'p')),
                                 bmpFile(2, 3, 32, std::string(24, 'p')), RgbaPng.substr(0, 70)};
    for (const std::string& file : files)
        for (size_t length = 0; length < file.size(); ++length) {
            EXPECT_FALSE(load(file.substr(0, length), length % 2 == 0)) << file[0] << length;
            EXPECT_EQ(bitmap.pixelAt(0, 0), 0u);
        }
    // Sizes that the file can't hold, at the limits of what a header can say.
    EXPECT_FALSE(load(zelFile(8192, 8192, 32, "abc")));
    EXPECT_FALSE(
        load(Bytes().text("ZG").u32(0xFFFFFFFF).u16(1).u16(1).u16(24).u32(0).fill(9, 'x')));
    EXPECT_FALSE(load(bmpFile(8192, INT32_MIN, 32, "abcd")));
    EXPECT_FALSE(load(bmpFile(INT32_MAX, 1, 24, "abcd")));
}

TEST_F(BitmapTest, KeepsFromTheDecoderWhatItDoesNotBear) {
    const std::string huffman = "\xFF\xC4\x01\x13\x00"s; // a segment of 273 bytes with one table
    const auto jpeg = [&](char longest) {
        return "\xFF\xD8"s + huffman + std::string(15, '\x10') + longest + std::string(256, 's');
    };
    EXPECT_TRUE(zel::isSafeToDecode(jpeg('\x10'))) << "256 symbols";
    EXPECT_FALSE(zel::isSafeToDecode(jpeg('\x11'))) << "257: one more than there are";
    EXPECT_FALSE(zel::isSafeToDecode("\xFF" + jpeg('\x11'))) << "a fill byte before the marker";
    EXPECT_TRUE(zel::isSafeToDecode(RgbaPng));
    EXPECT_TRUE(zel::isSafeToDecode(RgbaPng + "\xFF\xFF\xFF\xFFjunk"));
    std::string greedy = RgbaPng;
    greedy[33] = '\x60'; // the length of the pixels' chunk, most significant byte first
    EXPECT_FALSE(zel::isSafeToDecode(greedy));
    const LogCapture silence(0);
    EXPECT_TRUE(load(RgbaPng + "junk"));
    EXPECT_FALSE(load(greedy));
    EXPECT_FALSE(load(jpeg('\x11')));
}

TEST_F(BitmapTest, IsReadOnceAfterItsFileHasGone) {
    const std::string file = folder.write("picture", RgbaPng);
    ASSERT_TRUE(bitmap.loadFollowing(file, false));
    bitmap.sleep();
    EXPECT_EQ(bitmap.pixelAt(0, 0), 0xFF010203) << "awake";
    bitmap.sleep();
    std::filesystem::remove(file);
    const LogCapture log;
    for (int32_t frame = 0; frame < 2; ++frame)
        EXPECT_EQ(bitmap.pixelAt(0, 0), 0u);
    EXPECT_EQ(log.linesWith("does not exist"), 1);
    EXPECT_FALSE(bitmap.isLoaded());
}

TEST_F(BitmapTest, TakesPicturesMadeInMemory) {
    zel::BitmapData data = plainPicture(2, 1, 3, 9);
    EXPECT_TRUE(bitmap.assign(data, "made"));
    EXPECT_EQ(bitmap.pixelAt(1, 0), 0xFF090909);
    const LogCapture log;
    data.pixels.pop_back();
    EXPECT_FALSE(bitmap.assign(data, "short")) << "a byte is missing";
    EXPECT_FALSE(bitmap.isLoaded());
    data.depth = 2;
    EXPECT_FALSE(bitmap.assign(data, "depth"));
    EXPECT_TRUE(log.holds("[Bitmap] Bitmap: illegal depth"));
    EXPECT_TRUE(log.holds("[Bitmap] Illegal depth: 2"));
}

} // namespace
