#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

namespace {

constexpr size_t FontCount = 20;

/// The names of all fonts.
std::vector<std::string> bakedFonts() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(FONT_FOLDER))
        if (entry.path().extension() == ".fnt")
            names.push_back(entry.path().stem().string());
    return names;
}

// The bytes that mean nothing in texts.
bool isFree(int byte) {
    const bool isPolish = (byte >= 1 && byte <= 8) || (byte >= 14 && byte <= 21);
    return (byte < 32 && !isPolish) || byte == 127 || byte == 0x81 || byte == 0x8D ||
           byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

class BakedFontsTest : public testing::Test {
protected:
    ~BakedFontsTest() override {
        zel::FontHandler::clear();
        zel::ImageHandler::getInstance().clear();
    }
    static const zel::Font* font(const std::string& name) {
        return zel::FontHandler::getFont(std::string(FONT_FOLDER) + "/" + name);
    }
    /// Whether the character's picture has a pixel that hides more than half.
    static bool isDrawn(const zel::Font& font, const zel::Glyph& glyph) {
        const zel::Bitmap& page = font.pageImage(glyph.page)->getBitmap();
        for (int32_t place = 0; place < glyph.width * glyph.height; ++place)
            if (page.pixelAt(glyph.x + place % glyph.width, glyph.y + place / glyph.width) >> 31)
                return true;
        return false;
    }

    const std::vector<std::string> names = bakedFonts();
};

TEST_F(BakedFontsTest, HoldEveryCharacter) {
    const LogCapture log;
    ASSERT_EQ(names.size(), FontCount);
    for (const std::string& name : names) {
        const zel::Font* found = font(name);
        ASSERT_NE(found, nullptr) << name;
        const auto& description = found->getDescription();
        ASSERT_EQ(description.glyphs.size(), 256u) << "or kerning pairs would collide";
        ASSERT_NE(found->pageImage(0), nullptr) << name;
        for (int byte = 0; byte < 256; ++byte) {
            const zel::Glyph* glyph = found->glyph(static_cast<char>(byte));
            ASSERT_NE(glyph, nullptr) << name << byte;
            const bool isBlank = isFree(byte) || byte == ' ' || byte == 0xA0 || byte == 0xAD;
            EXPECT_TRUE(isBlank || isDrawn(*found, *glyph)) << name << " " << byte;
            EXPECT_TRUE(!isFree(byte) || glyph->xAdvance == 0) << name << " " << byte;
        }
    }
    EXPECT_EQ(log.text(), "");
}

// An outdated page of twice the size would show other letters.
TEST_F(BakedFontsTest, AreTheSameAtTwiceTheSize) {
    for (const std::string& name : names) {
        zel::Bitmap doubled;
        const std::string file = std::string(FONT_FOLDER) + "/" + name;
        ASSERT_TRUE(doubled.load(file + "@2x.png", false)) << name;
        const zel::Font* found = font(name);
        ASSERT_NE(found, nullptr) << name;
        const zel::Bitmap& plain = found->pageImage(0)->getBitmap();
        ASSERT_EQ(doubled.width(), plain.width() * 2) << name;
        ASSERT_EQ(doubled.height(), plain.height() * 2) << name;
        const auto ink = [](const zel::Bitmap& page, int32_t x, int32_t y) {
            return static_cast<int32_t>(page.pixelAt(x, y) >> 24);
        };
        int64_t off = 0, all = 0;
        for (int32_t y = 0; y < plain.height(); ++y)
            for (int32_t x = 0; x < plain.width(); ++x) {
                const int32_t four = ink(doubled, 2 * x, 2 * y) + ink(doubled, 2 * x + 1, 2 * y) +
                                     ink(doubled, 2 * x, 2 * y + 1) +
                                     ink(doubled, 2 * x + 1, 2 * y + 1);
                off += std::abs(ink(plain, x, y) - four / 4);
                all += ink(plain, x, y);
            }
        EXPECT_LT(off * 4, all) << name;
    }
}

} // namespace
