#include "engine/core/TextEncoding.h"

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"

using namespace std::string_literals;

TEST(TextEncoding, ConvertsWhatIsUtf8Throughout) {
    const struct {
        std::string text, decoded;
        const char* what;
    } cases[] = {
        {"plain", "plain", "no byte above 127"},
        {"\xC3\xA9\xE2\x82\xAC", "\xE9\x80", "two and three bytes"},
        {"\u201E\u0160\u017D\u2014\u0178", "\x84\x8A\x8E\x97\x9F", "by the table of Unicode"},
        {"caf\xE9", "caf\xE9", "Windows-1252"},
        {"\xC3\xA9 \xE9", "\xC3\xA9 \xE9", "one stray byte: all of it is Windows-1252"},
        {"\xC3", "\xC3", "cut"},
        {"\xC0\x80", "\xC0\x80", "overlong"},
        {"\xED\xA0\x80", "\xED\xA0\x80", "half of a pair"},
        {"\xF5\x80\x80\x80", "\xF5\x80\x80\x80", "beyond Unicode"},
        {"\xEF\xBB\xBF\xC3\xA9", "\xE9", "with a byte order mark"},
        {"\xC3\xA9\0\xC3\xA9"s, "\xE9\0\xE9"s, "with a zero byte"},
        {"\u0416\xF0\x9F\x98\x80", "??", "outside"},
    };
    const LogCapture log;
    for (const auto& [text, decoded, what] : cases)
        EXPECT_EQ(zel::decodedText(text, "a.txt"), decoded) << what;
    EXPECT_EQ(log.linesWith("a.txt:1: no font has the character U+0416"), 1);
    EXPECT_EQ(log.linesWith("a.txt:1: no font has the character U+1F600"), 1);
    EXPECT_EQ(log.linesWith("no font"), 2) << "only the last one lacks anything";
    zel::decodedText("\n\r\n\r\u0416", "b.txt");
    EXPECT_EQ(log.linesWith("b.txt:4: "), 1) << log.text();
}

TEST(TextEncoding, GoesToUtf8AndBack) {
    std::string all;
    for (int32_t byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    std::string known = all;
    for (const uint8_t nothing : {0x81, 0x8D, 0x8F, 0x90, 0x9D})
        known[nothing] = '?';
    EXPECT_TRUE(zel::isUtf8(zel::utf8Of(all)));
    EXPECT_EQ(zel::fromUtf8(zel::utf8Of(all)), known);
    EXPECT_EQ(zel::utf8Of("\xE9\x80"), "\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(zel::fromUtf8("\u0416\u0080\u009D\u0100 \xE9"), "???? ?") << "and a stray byte";
}

TEST(TextEncoding, HoldsThePolishLettersThatNamesLack) {
    const std::string letters = "\u0105\u0107\u0119\u0142\u0144\u015B\u017A\u017C"
                                "\u0104\u0106\u0118\u0141\u0143\u015A\u0179\u017B";
    const std::string text = zel::fromUtf8(letters + "\u00F3\u00E9");
    EXPECT_EQ(text.find('?'), text.npos);
    EXPECT_EQ(zel::decodedText(letters + "\u00F3\u00E9", "pl.txt"), text);
    EXPECT_EQ(zel::utf8Of(text), letters + "\u00F3\u00E9") << "beside any name of Windows-1252";
    EXPECT_EQ(zel::windows1252Text(text), "acelnszzACELNSZZ\xF3\xE9");
    EXPECT_EQ(zel::windows1252Of(0x0141), 'L');
    EXPECT_EQ(zel::windows1252Of(0x0416), '\0');
    EXPECT_EQ(zel::textByteOf(0x01), '\0') << "no control code becomes a letter";
}
