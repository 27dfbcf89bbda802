#include "engine/graphics/Text.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "engine/graphics/Font.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

namespace zel {

namespace {

/// A font of blanks and letters that are all 10 pixels wide, a line 20 high; "i" is 4 wide, "AV"
/// stand 3 closer together.
FontDescription plainFont() {
    FontDescription font;
    font.lineHeight = 20;
    font.glyphIndex.assign(256, -1);
    for (uint32_t code = 32; code < 256; ++code) {
        if (code == '~')
            continue;
        Glyph glyph{};
        glyph.id = code;
        glyph.width = code == ' ' ? 0 : 8;
        glyph.height = 12;
        glyph.xAdvance = code == 'i' ? 4 : 10;
        font.glyphIndex[code] = static_cast<int32_t>(font.glyphs.size());
        font.glyphs.push_back(glyph);
    }
    font.kerning.assign(65536, 0);
    font.kerning['A' * font.glyphs.size() + 'V'] = -3;
    return font;
}

class TextTest : public testing::Test {
protected:
    TextTest() { text.setFont(&font); }

    std::vector<String> broken(const char* words, float width, float height = 1000) {
        text.setText(words);
        text.setRect({0, 0, width, height});
        return text.lines();
    }

    Font font{"plain", plainFont()};
    Text text;
};
using Lines = std::vector<String>;

TEST_F(TextTest, BreaksAtBlanks) {
    EXPECT_EQ(broken("to be or not", 60), (Lines{"to be", "or not"}));
    EXPECT_EQ(broken("to be or not", 59), (Lines{"to be", "or", "not"}));
    EXPECT_EQ(broken("to be or not", 1000), (Lines{"to be or not"}));
    EXPECT_EQ(broken("one   two", 50), (Lines{"one", "two"})) << "blanks at a break are dropped";
    EXPECT_EQ(broken("  in", 200), (Lines{"  in"})) << "those that indent are not";
    EXPECT_EQ(broken("to be  ", 50), (Lines{"to be"})) << "nor do they need a line at the end";
    EXPECT_EQ(text.width(), 50);
    EXPECT_EQ(text.height(), 20);
}

TEST_F(TextTest, BreaksWhereItIsTold) {
    EXPECT_EQ(broken("a\nb\n\nc", 100), (Lines{"a", "b", "", "c"}));
    EXPECT_EQ(broken("C:\\new", 100), (Lines{"C:\\new"})) << "a path has no escapes";
    EXPECT_EQ(broken("a\r\n", 100), (Lines{"a", ""}));
    EXPECT_EQ(broken("a\tb", 100), (Lines{"a b"}));
}

TEST_F(TextTest, BreaksWordsThatAreTooWide) {
    EXPECT_EQ(broken("abcdefg", 30), (Lines{"abc", "def", "g"}));
    EXPECT_EQ(broken("ab cdefg", 30), (Lines{"ab", "cde", "fg"}));
    EXPECT_EQ(broken("abc", 0), (Lines{"a", "b", "c"})) << "one character a line at the least";
    EXPECT_EQ(broken("abc", -50), (Lines{"a", "b", "c"}));
}

TEST_F(TextTest, StopsBelowTheRectangle) {
    EXPECT_EQ(broken("a b c d e", 10, 59), (Lines{"a", "b"}));
    EXPECT_TRUE(text.isCut());
    EXPECT_EQ(broken("a b", 10, 40), (Lines{"a", "b"}));
    EXPECT_FALSE(text.isCut());
    EXPECT_EQ(broken("a b", 10, 0), (Lines{"a"})) << "one line in any case";
    std::string flood(100000, 'x');
    EXPECT_LE(broken(flood.c_str(), 0, 1.0e9F).size(), 4096U);
}

TEST_F(TextTest, ALineThatIsTooWideEndsInDots) {
    text.setFlow(TextFlow::Line);
    EXPECT_EQ(broken("squadron", 80), (Lines{"squadron"}));
    EXPECT_FALSE(text.isCut());
    EXPECT_EQ(broken("squadron", 79), (Lines{"squa..."}));
    EXPECT_TRUE(text.isCut());
    EXPECT_EQ(broken("to be or not", 70), (Lines{"to b..."}));
    EXPECT_EQ(broken("to be or not", 60), (Lines{"to..."})) << "no blank in front of the dots";
    EXPECT_EQ(broken("squadron", 30), (Lines{"..."}));
    EXPECT_EQ(broken("squadron", 29), (Lines{""}));
    EXPECT_EQ(broken("one\ntwo", 200), (Lines{"one two"}));
}

TEST_F(TextTest, IsLaidOutOnlyAfterAChange) {
    broken("abc def", 50);
    Canvas& canvas = Canvas::getInstance();
    for (int32_t frame = 0; frame < 3; ++frame) {
        text.draw(canvas);
        text.setText("abc def");
        text.setFont(&font);
        text.setColor(0xFF00FF00U + uint32_t(frame));
        text.setRect({static_cast<float>(frame), 7, 50, 1000}); // it moves
    }
    EXPECT_EQ(text.layoutCount(), 1);
    text.setAlign(AlignX::Right, AlignY::Top);
    EXPECT_EQ(text.lineCount(), 2);
    EXPECT_EQ(text.layoutCount(), 2);
}

TEST_F(TextTest, MissingCharactersAreSkippedAndSaidOnce) {
    LogCapture log;
    EXPECT_EQ(broken("a~~b~", 40), (Lines{"a~~b~"})) << "they take no room";
    text.draw(Canvas::getInstance());
    text.draw(Canvas::getInstance());
    EXPECT_EQ(text.width(), 20);
    EXPECT_EQ(log.linesWith("Tried to add non-existent char: ~ (ascii-value) of a~~b~ (mapped: "
                            "-1) in font plain"),
              1);
    EXPECT_EQ(broken("\xFC\xE4", 40), (Lines{"\xFC\xE4"}));
    EXPECT_EQ(text.width(), 20) << "bytes above 127 are characters like others";
}

/// A delivered font, and the glyphs as they are drawn.
class DrawnTextTest : public testing::Test {
protected:
    DrawnTextTest() {
        canvas.setRecorder(&list);
        text.setFont(&font);
    }
    ~DrawnTextTest() override { canvas.setRecorder(nullptr); }

    /// Left and upper edge of what is drawn.
    Point corner() {
        canvas.clearWindow();
        text.draw(canvas);
        Point least{1.0e9F, 1.0e9F};
        for (const Canvas::DrawRecord& record : list)
            least = {std::min(least.x, record.target.x), std::min(least.y, record.target.y)};
        return least;
    }

    Font font{FONT_FOLDER "/type18"};
    Canvas& canvas = Canvas::getInstance();
    std::vector<Canvas::DrawRecord> list;
    Text text;
};

TEST_F(DrawnTextTest, StandsWhereItIsAligned) {
    ASSERT_TRUE(font.isValid());
    text.setText("HH");
    text.setRect({100, 50, 200, 100});
    const Glyph& glyph = *font.glyph('H');
    const auto atX = [&glyph](int32_t x) { return static_cast<float>(x + glyph.xOffset); };
    const auto atY = [&glyph](int32_t y) { return static_cast<float>(y + glyph.yOffset); };
    EXPECT_EQ(corner().x, atX(100));
    EXPECT_EQ(corner().y, atY(50));
    text.setAlign(AlignX::Right, AlignY::Bottom);
    EXPECT_EQ(corner().x, atX(300 - font.width("HH")));
    EXPECT_EQ(corner().y, atY(150 - font.lineHeight()));
    text.setAlign(AlignX::Centre, AlignY::Centre);
    EXPECT_EQ(corner().x, atX(100 + (200 - font.width("HH")) / 2));
    EXPECT_EQ(corner().y, atY(50 + (100 - font.lineHeight()) / 2));
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1].target.x - list[0].target.x,
              glyph.xAdvance + font.charOffset() + font.kerning('H', 'H'));
    EXPECT_EQ(list[0].source,
              (Rect{static_cast<float>(glyph.x), static_cast<float>(glyph.y),
                    static_cast<float>(glyph.width), static_cast<float>(glyph.height)}));
}

TEST_F(DrawnTextTest, TakesItsColourAndTheMenusAlpha) {
    text.setText("a b");
    text.setRect({0, 0, 200, 100});
    text.setColor(0x80102030);
    text.draw(canvas, {3, 4}, 51);
    ASSERT_EQ(list.size(), 2U) << "a blank is not drawn";
    EXPECT_EQ(list[0].argb, 0x1A102030U);
    text.draw(canvas, {3, 4}, 0);
    EXPECT_EQ(list.size(), 2U);
}

} // namespace

} // namespace zel
