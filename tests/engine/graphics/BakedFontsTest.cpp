#include <gtest/gtest.h>

#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

namespace {

constexpr const char* BakedFonts[] = {
    "plate24",  "plate20",  "type20",      "type20b", "type18",   "type17",
    "report18", "report17", "report17red", "print30", "letter27", "board26",
};

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
    static const zel::Font* font(const char* name) {
        return zel::FontHandler::getFont(zel::String(FONT_FOLDER) + "/" + name);
    }
    /// Whether the character's picture has a pixel that hides more than half.
    static bool isDrawn(const zel::Font& font, const zel::Glyph& glyph) {
        const zel::Bitmap& page = font.pageImage(glyph.page)->getBitmap();
        for (int32_t place = 0; place < glyph.width * glyph.height; ++place)
            if (page.pixelAt(glyph.x + place % glyph.width, glyph.y + place / glyph.width) >> 31)
                return true;
        return false;
    }
};

TEST_F(BakedFontsTest, HoldEveryCharacter) {
    const LogCapture log;
    for (const char* name : BakedFonts) {
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

} // namespace
