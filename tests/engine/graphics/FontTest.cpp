#include "engine/graphics/Font.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// Advances: A 10, B 12, the 0xE4 (a with two dots) 7.
const std::string Letters = glyph('A', 10) + glyph('B', 12) + glyph(0xE4, 7);

zel::FontDescription parsed(const std::string& content) {
    zel::FontDescription font;
    EXPECT_TRUE(zel::parseFontDescription(content, font));
    return font;
}

TEST(FontDescription, ReadsEveryBlock) {
    const zel::FontDescription font = parsed(fontFile(Letters, kerningPair('A', 'B', -2)));
    EXPECT_EQ(font.fontName, "seed");
    using Numbers = std::vector<int32_t>;
    EXPECT_EQ((Numbers{font.info.size, font.info.stretch, font.info.outline, font.lineHeight,
                       font.base, font.scaleW, font.scaleH, font.common[0]}),
              (Numbers{18, 100, 2, 25, 17, 256, 128, 1}));
    EXPECT_EQ(font.pageNames, std::vector<zel::String>{"page.zel"});
    ASSERT_EQ(font.glyphs.size(), 3u);
    const zel::Glyph& letter = font.glyphs[1];
    EXPECT_EQ(letter.id, 66u);
    EXPECT_EQ((Numbers{letter.x, letter.y, letter.width, letter.height, letter.xOffset,
                       letter.yOffset, letter.xAdvance, letter.channel}),
              (Numbers{10, 20, 8, 9, -1, 3, 12, 15}));
    ASSERT_EQ(font.glyphIndex.size(), 0xE5u);
    EXPECT_EQ(font.glyphIndex[0xE4], 2);
    EXPECT_EQ(font.glyphIndex['C'], -1);
    ASSERT_EQ(font.kerning.size(), 65536u);
    EXPECT_EQ(font.kerning['A' * 3 + 'B'], -2);
    EXPECT_TRUE(parsed(fontFile(Letters)).kerning.empty());
}

TEST(FontDescription, RefusesOtherStartsAndTakesACutEnd) {
    zel::FontDescription font;
    for (const std::string& content :
         {std::string(), std::string("BMF"), fontFile(Letters, "", "p", 2), std::string("BMX\3")})
        EXPECT_FALSE(zel::parseFontDescription(content, font)) << content.size();
    const std::string cut = Bytes().text("BMF\3").u8(4).u32(0xFFFFFFFF).text(Letters);
    EXPECT_EQ(parsed(cut).glyphs.size(), 3u) << "as far as the file goes";
}

TEST(FontDescription, DropsWhatDoesNotFit) {
    std::string glyphs;
    for (uint32_t code = 0; code < 300; ++code)
        glyphs += glyph(code, 5);
    const auto font = parsed(fontFile(glyphs, kerningPair(300, 1, 9) + kerningPair(218, 100, 8) +
                                                  kerningPair(0xFFFFFFFF, 0xFFFFFFFF, 7)));
    EXPECT_EQ(font.kerning[218 * 300 + 100], 8);
    EXPECT_EQ(std::count(font.kerning.begin(), font.kerning.end(), 0), 65535);
    EXPECT_EQ(zel::Font("", font).kerning(300u, 1u), 0);
    // The mark of an invalid character is a record like the others, but no text contains its code.
    const auto marked = parsed(fontFile(glyph(0xFFFFFFFF, 3) + glyph('A', 10)));
    EXPECT_EQ(marked.glyphs.size(), 2u);
    EXPECT_EQ(marked.glyphIndex.size(), 66u);
    EXPECT_EQ(marked.glyphIndex['A'], 1);
    EXPECT_EQ(parsed(fontFile(Letters + "seven b")).glyphs.size(), 3u) << "a part of a record";
    const std::string cutPair = kerningPair('A', 'B', 0).substr(0, 8);
    EXPECT_EQ(parsed(fontFile(Letters, kerningPair('A', 'B', -2) + cutPair)).kerning['A' * 3 + 'B'],
              -2);
    std::string kerningFirst = "BMF\3" + fontBlock(5, kerningPair(1, 1, 1)) + fontBlock(4, Letters);
    EXPECT_TRUE(parsed(kerningFirst).kerning.empty());
    EXPECT_EQ(parsed(kerningFirst).glyphs.size(), 3u);
    EXPECT_EQ(parsed("BMF\3" + fontBlock(9, "unknown") + fontBlock(4, Letters)).glyphs.size(), 3u);
    EXPECT_TRUE(parsed("BMF\3" + fontBlock(3, "a")).pageNames.empty()) << "no pages, no names";
}

class FontMetrics : public testing::Test {
protected:
    /// The font after the metrics file.
    static zel::Font with(std::string_view metrics) {
        zel::FontDescription font = parsed(fontFile(Letters, kerningPair('A', 'B', -2)));
        zel::applyFontMetrics(metrics, "seed.cfg", font);
        return {"seed", std::move(font)};
    }
};

TEST_F(FontMetrics, MeasuresALine) {
    const zel::Font font = with("");
    const zel::Font wider = with("CharOffset 2");
    const struct {
        const char* text;
        int32_t width, wider;
        const char* what;
    } cases[] = {
        {"", 0, 0, "nothing"},
        {"A", 10, 10, "the distance is between characters, not after the last"},
        {"BA", 22, 24, "two"},
        {"BAA", 32, 36, "three"},
        {"AB", 20, 22, "kerned"},
        {"A\xE4", 17, 19, "a byte above 127"},
        {"A?B", 20, 22, "as if the unknown one weren't there"},
    };
    for (const auto& line : cases) {
        EXPECT_EQ(font.width(line.text), line.width) << line.what;
        EXPECT_EQ(wider.width(line.text), line.wider) << line.what;
    }
    EXPECT_EQ(wider.charOffset(), 2);
    EXPECT_EQ(font.lineHeight(), 25);
    EXPECT_EQ(font.glyph('?'), nullptr);
    EXPECT_EQ(font.glyph('\xE4')->id, 0xE4u);
    EXPECT_EQ(font.pageImage(0), nullptr);
    EXPECT_EQ(zel::Font("", zel::FontDescription()).lineHeight(), 1);
}

TEST_F(FontMetrics, CorrectsSingleCharacters) {
    for (const char* line : {"singlecharoffset (A) 1 2", "singlecharoffset 65 1 2",
                             "\r\nSINGLECHAROFFSET  65  1 2 \r\n"}) {
        const zel::Font font = with(line);
        EXPECT_EQ(font.glyph('A')->xOffset, 0) << line;
        EXPECT_EQ(font.glyph('A')->yOffset, 5) << line;
        EXPECT_EQ(font.glyph('B')->xOffset, -1) << line;
    }
    EXPECT_EQ(with("widthofchar (\xE4) 40").width("\xE4"), 40);
    EXPECT_EQ(with("widthofchar 65 99999").glyph('A')->xAdvance, 32767);
}

TEST_F(FontMetrics, ReportsWhatItCannotDo) {
    // The first glyph has the code 0: a word that isn't a number must not select it.
    const std::string zeroFirst = glyph(0, 6) + Letters;
    for (const char* line :
         {"charoffset", "charoffset two", "charoffset 2px", "widthofchar 65", "widthofchar 65 wide",
          "widthofchar ( ) 5", "widthofchar () 5", "widthofchar A 5", "widthofchar (AB) 5",
          "widthofchar - 5", "widthofchar -1 5", "widthofchar 99999999999 5", "widthofchar (C) 5",
          "singlecharoffset", "singlecharoffset (A) 1", "singlecharoffset (A) 1 x"}) {
        const LogCapture log;
        zel::FontDescription font = parsed(fontFile(zeroFirst));
        zel::applyFontMetrics(line, "seed.cfg", font);
        EXPECT_EQ(log.linesWith(std::string("[Font] Bad line in seed.cfg: ") + line), 1);
        EXPECT_EQ(font.charOffset, 0) << line;
        EXPECT_EQ(font.glyphs[0].xAdvance, 6) << line;
        EXPECT_EQ(font.glyphs[1].xAdvance, 10) << line;
        EXPECT_EQ(font.glyphs[1].xOffset, -1) << line;
    }
    const LogCapture log;
    for (const char* comment : {"", "   ", "# charoffset 2", "width 65 3"})
        EXPECT_EQ(with(comment).width("AB"), 20) << comment;
    EXPECT_EQ(log.text(), "") << "other lines are comments";
}

class FontHandlerTest : public testing::Test {
protected:
    ~FontHandlerTest() override {
        zel::FontHandler::clear();
        zel::ImageHandler::getInstance().clear();
    }
    TemporaryFolder folder;
};

TEST_F(FontHandlerTest, ReadsAFontWithItsPageAndMetrics) {
    folder.write("seed.fnt", fontFile(Letters));
    folder.write("seed.cfg", "charoffset 3\n");
    folder.write("page.zel", zelFile(1, 1, 24, "abc"));
    const zel::String name = folder.path() + "/seed";
    const LogCapture log(zel::LogInfo);
    const zel::Font* font = zel::FontHandler::getFont(name);
    ASSERT_NE(font, nullptr);
    EXPECT_TRUE(log.holds("[FontHandler] Successfully created new font " + folder.path()));
    EXPECT_EQ(font->charOffset(), 3);
    ASSERT_NE(font->pageImage(0), nullptr);
    EXPECT_EQ(font->pageImage(0)->width(), 1);
    EXPECT_EQ(font->pageImage(1), nullptr);
    EXPECT_EQ(font->pageImage(-1), nullptr);
    EXPECT_EQ(zel::FontHandler::getFont(name), font);
    EXPECT_EQ(log.linesWith("Successfully"), 1);
    EXPECT_NE(zel::FontHandler::getFont(name + ".fnt"), nullptr);
}

TEST_F(FontHandlerTest, SaysOnceWhatIsNoFont) {
    folder.write("old.fnt", fontFile(Letters, "", "p", 2));
    const LogCapture log;
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(zel::FontHandler::getFont(folder.path() + "/old"), nullptr);
        EXPECT_EQ(zel::FontHandler::getFont(folder.path() + "/none"), nullptr);
    }
    EXPECT_EQ(log.linesWith("[Font] Font " + folder.path() + "/old invalid"), 1);
    EXPECT_EQ(log.linesWith("[Font] Font " + folder.path() + "/none not found"), 1);
    EXPECT_EQ(log.linesWith(" w "), 2);
    EXPECT_EQ(log.linesWith("[FontHandler] Invalid font " + folder.path() + "/none"), 1);
}

} // namespace
