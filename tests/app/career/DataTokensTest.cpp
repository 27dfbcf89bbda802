#include "app/career/DataTokens.h"

#include <string>

#include <gtest/gtest.h>

namespace {

/// "key:value;" for each token of the line.
std::string tokensOf(std::string_view line) {
    std::vector<DataToken> tokens(3); // of the line before
    splitDataLine(line, tokens);
    std::string text;
    for (const DataToken& token : tokens)
        text += std::string(token.key) + ":" + std::string(token.value) + ";";
    return text;
}

TEST(DataTokens, SplitsAtBlanksAndEqualSigns) {
    EXPECT_EQ(tokensOf("date=19170401 action=transfer unit=102056 acelevel=1"),
              "date:19170401;action:transfer;unit:102056;acelevel:1;");
    EXPECT_EQ(tokensOf("  a=1  b=2 "), "a:1;b:2;");
    EXPECT_EQ(tokensOf("note a=1 nothing here"), "a:1;") << "a token without = is left out";
    EXPECT_EQ(tokensOf("a=1=2=3 b==4"), "a:1;b:;") << "what follows a second = is left out";
    EXPECT_EQ(tokensOf("a= =b ="), "a:;:b;:;");
    EXPECT_EQ(tokensOf("a=1\tb=2"), "a:1\tb;") << "a tab isn't a blank";
    EXPECT_EQ(tokensOf(""), "");
    EXPECT_EQ(tokensOf("   "), "");
}

TEST(DataTokens, ComparesKeysWithoutRegardToCase) {
    EXPECT_TRUE((DataToken{"DaTe", ""}.is("date")));
    EXPECT_FALSE((DataToken{"dates", ""}.is("date")));
}

} // namespace
