#include "tools/career/CommandLine.h"

#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/Printers.h"
#include "tools/career/Session.h"

namespace {

/// The result of reading a call's words, separated by blanks.
struct ReadCall {
    explicit ReadCall(const char* text) {
        std::istringstream stream(text);
        const std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
        reading = readCareerCall(words, call);
    }
    CareerCall call;
    tools::CallReading reading;
};

TEST(CareerCommandLine, ReadsCommandsInTheirOrder) {
    // clang-format off
    const std::pair<const char*, size_t> calls[] = {
        {"new french 1915 12", 1}, {"new english 1916 1", 1}, {"new german 1918 10", 1},
        {"load status save", 3}, {"mission fly report", 3}, {"advance advance 5 advance", 3},
        {"until 19181111", 1}, {"until 19160229", 1}, {"squadron aces invitation", 3},
        {"invitation accept invitation refuse invitation status", 4},
        {"flights victories postings export a.json save", 5}, {"victories Falke victories", 2},
        {"careers take 3 putaway 12 pages page 19170610 page 19170610-2 careers", 7}, {"victories pages", 2},
        {"squadrons german 1917 4 new german 1917 4 --name Kurz --squadron 501011", 2},
    };
    // clang-format on
    for (const auto& [text, commands] : calls) {
        const ReadCall read(text);
        EXPECT_EQ(read.reading.text, "") << text;
        EXPECT_EQ(read.call.commands.size(), commands) << text;
    }
}

TEST(CareerCommandLine, ReadsOptionsAnywhere) {
    const ReadCall plain("status");
    EXPECT_FALSE(plain.call.seed.has_value());
    EXPECT_FALSE(plain.call.quiet || plain.call.verbose);
    EXPECT_EQ(plain.call.waitSeconds, 0);
    const ReadCall read("--rof a status --user b --data c --seed 4294967295 report --wait 7 "
                        "--quiet --verbose");
    ASSERT_EQ(read.reading.text, "");
    EXPECT_EQ(read.call.rofDirectory, "a");
    EXPECT_EQ(read.call.userDirectory, "b");
    EXPECT_EQ(read.call.dataDirectory, "c");
    EXPECT_EQ(read.call.seed, 4294967295U);
    EXPECT_EQ(read.call.waitSeconds, 7);
    EXPECT_TRUE(read.call.quiet && read.call.verbose);
    EXPECT_EQ(read.call.commands.size(), 2u);
    EXPECT_EQ(ReadCall("--seed 5 --seed 010 status").call.seed, 10U) << "the last one, in decimal";
}

TEST(CareerCommandLine, ReportsWhatIsWrong) {
    const std::pair<const char*, std::vector<const char*>> errors[] = {
        {"no command given", {"", "--quiet"}},
        {"unknown command: fight", {"fight"}},
        {"unknown command: Status", {"Status"}},
        {"--fast", {"--fast status"}},
        {"new wants french, english or german", {"new", "new dutch 1916 1"}},
        {"new wants a year and a month from 1915 12 to 1918 10",
         {"new french", "new french 1916", "new french 1915 11", "new french 1918 11",
          "new french 1917 0", "new french 1917 13", "new french 1917x 3"}},
        {"squadrons wants french, english or german", {"squadrons"}},
        {"--name and --squadron are for new", {"load --name Kurz", "load --squadron 501011"}},
        {"at most 31 letters", {"new french 1916 1 --name Abcdefghijklmnopqrstuvwxyz-Abcde"}},
        {"can't carry a character",
         {"new french 1916 1 --name A/B", "new french 1916 1 --name \xE2\x98\x83"}},
        {"until wants a date as YYYYMMDD",
         {"until", "until 1917", "until 19170229", "until 19171301", "until 19170100",
          "until tomorrow"}},
        {"advance wants 1 to 1000 periods", {"advance 0", "advance 1001"}},
        {"take wants the number of a career", {"take", "take 0", "take Hans", "take 3x"}},
        {"putaway wants the number of a career", {"putaway careers"}},
        {"page wants a date as YYYYMMDD, or the name of a page", {"page", "page save"}},
        {"unknown command: much", {"advance much"}},
        {"unknown command: perhaps", {"invitation perhaps"}},
        {"--seed: ",
         {"--seed", "--seed -1 status", "--seed 4294967296 status", "--seed 1.5 status",
          "--seed 0x10 status"}},
        {"--wait: ", {"--wait x report", "--wait -1 report", "--wait 86401 report"}},
        {"--rof: ", {"status --rof", "--rof --user a status"}},
        {"--language: ", {"status --language"}},
    };
    for (const auto& [error, calls] : errors)
        for (const char* call : calls) {
            const tools::CallReading reading = ReadCall(call).reading;
            EXPECT_EQ(reading.kind, tools::CallKind::Wrong) << call;
            const std::string line = reading.text.substr(0, reading.text.find('\n'));
            EXPECT_NE(line.find(error), line.npos) << call << ": " << line;
        }
}

} // namespace
