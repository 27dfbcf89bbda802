#include "tools/career/CommandLine.h"

#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/Printers.h"
#include "tools/career/Session.h"

namespace {

/// What a call's words, parted by blanks, come to.
struct ReadCall {
    explicit ReadCall(const char* text) {
        std::istringstream stream(text);
        for (std::string word; stream >> word;)
            words.push_back(word);
        const std::vector<std::string_view> views(words.begin(), words.end());
        isRight = readCareerCall(views, call, error);
    }
    std::vector<std::string> words;
    CareerCall call;
    std::string error;
    bool isRight = false;
};

TEST(CareerCommandLine, ReadsCommandsInTheirOrder) {
    // clang-format off
    const std::pair<const char*, size_t> calls[] = {
        {"new french 1915 12", 1}, {"new english 1916 1", 1}, {"new german 1918 10", 1},
        {"load status save", 3}, {"mission fly report", 3}, {"advance advance 5 advance", 3},
        {"until 19181111", 1}, {"until 19160229", 1}, {"squadron aces invitation", 3},
        {"invitation accept invitation refuse invitation status", 4}, {"--help", 0},
    };
    // clang-format on
    for (const auto& [text, commands] : calls) {
        const ReadCall read(text);
        EXPECT_TRUE(read.isRight) << text << ": " << read.error;
        EXPECT_EQ(read.call.commands.size(), commands) << text;
    }
}

TEST(CareerCommandLine, ReadsOptionsAnywhere) {
    const ReadCall plain("status");
    EXPECT_FALSE(plain.call.seed.has_value());
    EXPECT_FALSE(plain.call.quiet || plain.call.verbose || plain.call.help);
    EXPECT_EQ(plain.call.waitSeconds, 0);
    const ReadCall read("--rof a status --user b --data c --seed 4294967295 report --wait 7 "
                        "--quiet --verbose");
    ASSERT_TRUE(read.isRight) << read.error;
    EXPECT_EQ(read.call.rofDirectory, "a");
    EXPECT_EQ(read.call.userDirectory, "b");
    EXPECT_EQ(read.call.dataDirectory, "c");
    EXPECT_EQ(read.call.seed, 4294967295U);
    EXPECT_EQ(read.call.waitSeconds, 7);
    EXPECT_TRUE(read.call.quiet && read.call.verbose);
    EXPECT_EQ(read.call.commands.size(), 2u);
    EXPECT_EQ(ReadCall("--seed 0 status").call.seed, 0U);
}

TEST(CareerCommandLine, TellsWhatIsWrong) {
    const std::pair<const char*, std::vector<const char*>> errors[] = {
        {"no command given", {"", "--quiet"}},
        {"unknown command: fight", {"fight"}},
        {"unknown command: Status", {"Status"}},
        {"unknown option: --fast", {"--fast status"}},
        {"new wants french, english or german", {"new", "new dutch 1916 1"}},
        {"new wants a year and a month from 1915 12 to 1918 10",
         {"new french", "new french 1916", "new french 1915 11", "new french 1918 11",
          "new french 1917 0", "new french 1917 13", "new french 1917x 3"}},
        {"until wants a date as YYYYMMDD",
         {"until", "until 1917", "until 19170229", "until 19171301", "until 19170100",
          "until tomorrow"}},
        {"advance wants 1 to 1000 periods", {"advance 0", "advance 1001"}},
        {"unknown command: much", {"advance much"}},
        {"unknown command: perhaps", {"invitation perhaps"}},
        {"--seed wants a number",
         {"--seed", "--seed -1 status", "--seed 4294967296 status", "--seed 1.5 status"}},
        {"--wait wants a number", {"--wait x report", "--wait -1 report"}},
        {"--rof wants a folder", {"status --rof"}},
        {"--user wants a folder", {"status --user"}},
        {"--data wants a folder", {"status --data"}},
    };
    for (const auto& [error, calls] : errors)
        for (const char* call : calls) {
            const ReadCall read(call);
            EXPECT_FALSE(read.isRight) << call;
            EXPECT_EQ(read.error, error) << call;
        }
}

} // namespace
