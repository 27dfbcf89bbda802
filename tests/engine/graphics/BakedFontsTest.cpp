#include <gtest/gtest.h>

#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

namespace {

struct BakedFont {
    const char* name;
    int32_t lineHeight; // as the screens were designed with
    int32_t advance;    // of every letter; 0: each has its own
};

constexpr BakedFont BakedFonts[] = {
    {"plate24", 25, 0},      {"plate20", 21, 0}, {"type20", 27, 12},   {"type20b", 27, 12},
    {"type18", 25, 11},      {"type17", 22, 10}, {"report18", 25, 11}, {"report17", 22, 10},
    {"report17red", 22, 10}, {"print30", 31, 0}, {"letter27", 32, 0},  {"board26", 27, 0},
};

// The bytes that Windows-1252 leaves free.
bool isFree(int byte) {
    return byte < 32 || byte == 127 || byte == 0x81 || byte == 0x8D || byte == 0x8F ||
           byte == 0x90 || byte == 0x9D;
}

class BakedFontsTest : public testing::Test {
protected:
    ~BakedFontsTest() override {
        zel::FontHandler::clear();
        zel::ImageHandler::getInstance().clear();
    }
    static const zel::Font* font(const char* name) {
        return zel::FontHandler::getFont(zel::String(FONT_FOLDER) + "/" + name);
    }
    /// The pixel of the character's picture that hides most.
    static uint32_t darkest(const zel::Font& font, char character) {
        const zel::Glyph& glyph = *font.glyph(character);
        const zel::Bitmap& page = font.pageImage(glyph.page)->getBitmap();
        uint32_t found = 0;
        for (int32_t y = glyph.y; y < glyph.y + glyph.height; ++y)
            for (int32_t x = glyph.x; x < glyph.x + glyph.width; ++x)
                if (page.pixelAt(x, y) >> 24 > found >> 24)
                    found = page.pixelAt(x, y);
        return found;
    }
};

TEST_F(BakedFontsTest, HoldEveryCharacter) {
    const LogCapture log;
    for (const BakedFont& baked : BakedFonts) {
        const zel::Font* found = font(baked.name);
        ASSERT_NE(found, nullptr) << baked.name;
        const auto& description = found->getDescription();
        EXPECT_EQ(description.fontName, baked.name);
        EXPECT_EQ(found->lineHeight(), baked.lineHeight) << baked.name;
        ASSERT_EQ(description.glyphs.size(), 256u) << "or kerning pairs would collide";
        ASSERT_NE(found->pageImage(0), nullptr) << baked.name;
        EXPECT_EQ(found->pageImage(0)->getBitmap().width(), description.scaleW);
        EXPECT_EQ(found->pageImage(0)->getBitmap().height(), description.scaleH);
        for (int byte = 0; byte < 256; ++byte) {
            const zel::Glyph* glyph = found->glyph(static_cast<char>(byte));
            ASSERT_NE(glyph, nullptr) << baked.name << byte;
            const bool isBlank = isFree(byte) || byte == ' ' || byte == 0xA0 || byte == 0xAD;
            EXPECT_TRUE(isBlank || darkest(*found, static_cast<char>(byte)) >> 24 > 128)
                << baked.name << " " << byte;
            const int32_t wanted = isFree(byte) ? 0 : baked.advance;
            if (wanted > 0 || isFree(byte)) {
                EXPECT_EQ(glyph->xAdvance, wanted) << baked.name << " " << byte;
            }
        }
        if (baked.advance > 0) {
            EXPECT_EQ(found->width("Allmenr\xF6"
                                   "der (To!)"),
                      17 * baked.advance)
                << baked.name;
        }
    }
    EXPECT_EQ(log.text(), "");
}

TEST_F(BakedFontsTest, KernWhatIsPrinted) {
    for (const char* name : {"print30", "board26", "letter27", "plate24"}) {
        EXPECT_LT(font(name)->kerning('T', 'o'), 0) << name;
        EXPECT_EQ(font(name)->kerning('n', 'n'), 0) << name;
    }
}

TEST_F(BakedFontsTest, CarryTheirInk) {
    const auto inkOf = [](const char* name) { return darkest(*font(name), 'M') & 0xFFFFFF; };
    EXPECT_EQ(inkOf("type20"), 0xFFFFFFu) << "takes its colour from the theme";
    EXPECT_EQ(inkOf("report18"), 0x2A1E12u);
    EXPECT_EQ(inkOf("report17"), 0x3A2C1Bu);
    EXPECT_EQ(inkOf("report17red"), 0x8E1F17u);
    EXPECT_EQ(inkOf("plate24"), 0x2A1805u);
}

} // namespace
