#include "engine/menu/script/MenuWords.h"

#include <gtest/gtest.h>

#include "engine/menu/script/PlatformCondition.h"
#include "engine/menu/style/Bounds.h"
#include "engine/menu/style/OverlayOptions.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

std::string joined(std::string_view line) {
    std::string result;
    for (const String& word : splitWords(line))
        result += "[" + std::string(word.view()) + "]";
    return result;
}

std::vector<int32_t> placeOf(const OverlayOptions& options, int32_t width, int32_t height) {
    const PixelRect place = options.pictureRect(width, height);
    return {place.x, place.y, place.width, place.height};
}

OverlayOptions options(std::initializer_list<const char*> words) {
    OverlayOptions result;
    for (const char* word : words)
        EXPECT_TRUE(result.take(word)) << word;
    return result;
}

} // namespace

TEST(MenuWords, CutsAtBlanksOutsideQuotes) {
    EXPECT_EQ(joined("addwidget ok \"Press here\""), "[addwidget][ok][Press here]");
    EXPECT_EQ(joined("  a   b "), "[a][b]");
    EXPECT_EQ(joined("a \"\" b"), "[a][b]") << "an empty word is dropped";
    EXPECT_EQ(joined("a \" \" b"), "[a][ ][b]") << "a blank is a word";
    EXPECT_EQ(joined("\"open to the end"), "[open to the end]");
    EXPECT_EQ(joined("in\"side the\"word"), "[in\"side the\"word]") << "only quotes at ends go";
    EXPECT_EQ(joined("\"\""), "");
}

TEST(MenuWords, KnowsColours) {
    EXPECT_EQ(parseColor("80FF0010"), 0x80FF0010U);
    EXPECT_EQ(parseColor("#a0B1c2"), 0xFFA0B1C2U) << "six digits are opaque";
    for (const char* wrong : {"", "#", "12345", "1234567", "123456789", "12345g", "##123456"})
        EXPECT_FALSE(parseColor(wrong)) << wrong;
}

TEST(MenuWords, HoldsNumbersInReason) {
    EXPECT_EQ(parseCoordinate("-12"), -12);
    EXPECT_EQ(parseCoordinate("99999999999"), 32768);
    EXPECT_EQ(parseCoordinate("word"), 0);
    EXPECT_EQ(parseSeconds("0.25"), 0.25F);
    EXPECT_EQ(parseSeconds("-3"), 0.0F);
    EXPECT_EQ(parseSeconds("nan"), 0.0F);
}

TEST(MenuWords, TakesOneDirectionAtATime) {
    EXPECT_EQ(alignmentOfWord("Center", false), AlignHCenter);
    EXPECT_FALSE(alignmentOfWord("top", false));
    EXPECT_EQ(alignmentOfWord("top", true), AlignTop);
    EXPECT_EQ(withAlignment(AlignLeft | AlignTop, AlignRight), AlignRight | AlignTop);
    EXPECT_EQ(withAlignment(AlignLeft | AlignTop, AlignBottom), AlignLeft | AlignBottom);
}

TEST(PlatformCondition, TellsTabletsBySize) {
    EXPECT_TRUE(isTabletSize(1024, 768));
    EXPECT_TRUE(isTabletSize(768, 1024));
    EXPECT_FALSE(isTabletSize(767, 800));
    EXPECT_FALSE(isTabletSize(800, 767));
    EXPECT_FALSE(isTabletSize(1025, 800));
    EXPECT_FALSE(isTabletSize(800, 1025));
    // Without a window the design counts, and that has a tablet's size.
    EXPECT_EQ(resolveCondition({"@Tablet"}), ConditionResult::Holds);
    EXPECT_EQ(resolveCondition({"@(phone)"}), ConditionResult::Fails);
    EXPECT_EQ(resolveCondition({"@watch"}), ConditionResult::Unknown);
}

TEST(PlatformCondition, KeepsSixWordsBehindIt) {
    EXPECT_EQ(conditionalLine(splitWords("@(tablet) addwidget a b c d e f g")),
              "addwidget a b c d e");
    EXPECT_EQ(conditionalLine({"@tablet"}), "");
}

TEST(Bounds, MovesInAndOutByTheirOwnOffsets) {
    Bounds bounds;
    bounds.rect = {10, 20, 30, 40};
    bounds.scrollIn = {100, -200};
    bounds.scrollOut = {-300, 500};
    const struct {
        int32_t phase;
        float progress;
        int32_t x, y;
    } moments[] = {{0, 0, 110, -180},
                   {0, 0.75F, 35, -30},
                   {0, 1, 10, 20},
                   {1, 1, 10, 20},
                   {1, 0.5F, -140, 270}};
    for (const auto& moment : moments) {
        bounds.moveTo(moment.phase, moment.progress);
        EXPECT_EQ(bounds.drawX, moment.x) << moment.phase << " at " << moment.progress;
        EXPECT_EQ(bounds.drawY, moment.y) << moment.phase << " at " << moment.progress;
    }
}

TEST(OverlayOptions, PlacesPictures) {
    using Numbers = std::vector<int32_t>;
    EXPECT_EQ(placeOf({}, 512, 768), (Numbers{256, 0, 512, 768})) << "the aspect is kept";
    EXPECT_EQ(placeOf(options({"ignoreaspectratio"}), 512, 768), (Numbers{0, 0, 1024, 768}));
    EXPECT_EQ(placeOf(options({"Overscan"}), 512, 768), (Numbers{0, -384, 1024, 1536}));
    EXPECT_EQ(placeOf(options({"scaleinintegers"}), 300, 200), (Numbers{62, 84, 900, 600}));
    EXPECT_EQ(placeOf(options({"scaleinintegers"}), 2048, 1536), (Numbers{-512, -384, 2048, 1536}))
        << "never smaller than it is";
    EXPECT_EQ(placeOf({}, 0, 5), (Numbers{0, 0, 0, 0}));
    EXPECT_FALSE(OverlayOptions().take("stretched"));
}
