#include "engine/core/String.h"

#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/Printers.h"

namespace {

using zel::String;
using List = std::vector<String>;

constexpr int32_t LowestInt = std::numeric_limits<int32_t>::min();
constexpr int32_t HighestInt = std::numeric_limits<int32_t>::max();
constexpr float Largest = std::numeric_limits<float>::max();

List parts(const String& text, std::string_view delimiter) {
    List result{"of before"};
    text.split(delimiter, result);
    return result;
}

// clang-format off
TEST(String, ReadsNumbersAsAtoiDoes) {
    for (const auto& [text, number] : {
             std::pair{"", 0}, {"12abc", 12}, {"abc", 0}, {" \t\r\n\v\f 7", 7}, {"-5", -5},
             {"+5", 5}, {"+-5", 0}, {"- 5", 0}, {"-", 0}, {"007", 7}, {"1.9", 1}, {"0x10", 0},
             {"\xA0 3", 0}, {"2147483647", HighestInt}, {"-2147483648", LowestInt},
             {"2147483648", HighestInt}, {"-2147483649", LowestInt}, {"99999999999999999999", HighestInt},
             {"-99999999999999999999", LowestInt}})
        EXPECT_EQ(String(text).toInt(), number) << text;
}

TEST(String, ReadsFloatsWithAPointWhateverTheSystem) {
    for (const auto& [text, number] : {
             std::pair{"", 0.0F}, {"x", 0}, {"1050.25", 1050.25F}, {" \t-0.5z", -0.5F},
             {"+.5", 0.5F}, {"1.", 1}, {"1,5", 1}, {"1e3", 1000}, {"1e", 1}, {"+-1", 0}, {"-", 0},
             {"1e99", Largest}, {"-1e99", -Largest}})
        EXPECT_EQ(zel::toFloat(text), number) << text;
    for (const char* text : {"1e-99", "-1e-99"})
        EXPECT_EQ(zel::toFloat(text), 0.0F) << "too small to be held: " << text;
    for (const char* word : {"nan", "inf", "-infinity"})
        EXPECT_EQ(zel::toFloat(word), 0.0F) << "a word isn't a number: " << word;
}
// clang-format on

// Compared with printf's %g, which gives the same form in a locale with a decimal point.
TEST(String, WritesFloatsWithSixDigits) {
    for (const float number : {213678.73F, 1050.25F, 1e6F, 999999.5F, -0.5F, 0.0F, 100000.0F,
                               123456.7F, 0.0001F, 0.00001F, 41.84F, 1.0F / 3.0F, -2e-30F}) {
        char expected[32];
        std::snprintf(expected, sizeof expected, "%g", static_cast<double>(number));
        EXPECT_EQ(zel::formatFloat(number), expected);
    }
}

TEST(String, LowersLettersAlone) {
    EXPECT_EQ(String("AZaz@[`{09 \xC4\xDC\xE4").toLower(), "azaz@[`{09 \xC4\xDC\xE4");
    EXPECT_TRUE(zel::equalsNoCase("SE5a", "se5A"));
    EXPECT_FALSE(zel::equalsNoCase("\xC4", "\xE4") || zel::equalsNoCase("se5a", "se5"));
}

TEST(String, TrimsAndCuts) {
    EXPECT_EQ(String("  a b ").trim(' '), "a b");
    EXPECT_EQ(String(" \ta\t ").trim(' '), "\ta\t") << "one character at a time";
    EXPECT_EQ(String("xxx").trim('x'), "");
    const String text("abcde");
    EXPECT_EQ(text.left(2) + text.right(2), "abde");
    EXPECT_EQ(text.left(9) + text.right(9), "abcdeabcde");
    EXPECT_EQ(text.left(-1) + text.right(-1), "");
    EXPECT_EQ(text.find('c'), 2);
    EXPECT_LT(text.find('x'), 0);
}

TEST(String, SplitsAtEveryDelimiter) {
    EXPECT_EQ(parts(" a  b ", " "), (List{"", "a", "", "b", ""}));
    EXPECT_EQ(parts("abc", " "), List{"abc"});
    EXPECT_EQ(parts("", " "), List{""});
    EXPECT_EQ(parts("a::b:c", "::"), (List{"a", "b:c"}));
    EXPECT_EQ(parts("aaa", "aa"), (List{"", "a"}));
    EXPECT_EQ(parts("abc", ""), List{"abc"}) << "nothing to cut at";
}

TEST(String, CopiesIntoFixedArrays) {
    std::string buffer(8, '#');
    String("long").copyTo(buffer.data(), 2);
    EXPECT_EQ(buffer, "########") << "below 3 nothing happens";
    String("long").copyTo(buffer.data(), 3);
    EXPECT_EQ(buffer, std::string("lo\0#####", 8));
    String("a").copyTo(buffer.data(), 7);
    EXPECT_EQ(buffer, std::string("a\0\0\0\0\0\0#", 8)) << "cleared first";
    const char full[3] = {'a', 'b', 'c'};
    EXPECT_EQ(zel::arrayText(full), "abc") << "an array without its zero ends at its end";
}

TEST(String, OrdersByUnsignedBytes) {
    EXPECT_TRUE(String("ab") < String("abc") && String("Z") < String("a"));
    EXPECT_LT(String("z"), String("\xE4")) << "bytes above 127 come last";
    EXPECT_FALSE(String("b") < String("ab") || String("b") < String("b"));
    EXPECT_NE(String(std::string("a\0b", 3)), String("a")) << "a zero is a byte like others";
}

TEST(String, CarriesASecondText) {
    String text("first");
    text.setSecondText("second");
    String copy(text);
    String assigned;
    assigned = copy;
    const String moved(std::move(copy));
    EXPECT_EQ(moved.secondText() + assigned.secondText(), "secondsecond");
    EXPECT_EQ(text, String("first")) << "it takes no part in comparing";
}

} // namespace
