#include "tools/standin/CommandLine.h"

#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

namespace standin {

namespace {

CommandLine parsed(const std::vector<std::string>& words) {
    CommandLine line;
    std::string error;
    EXPECT_TRUE(parseCommandLine(words, line, error)) << error;
    return line;
}

/// What is wrong with a call's words, parted by blanks.
std::string errorOf(const char* call) {
    std::istringstream stream(call);
    const std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
    CommandLine line;
    std::string error;
    return parseCommandLine(words, line, error) ? "" : error;
}

} // namespace

TEST(CommandLine, TakesOptionsInAnyOrder) {
    const CommandLine line = parsed({"--seed", "4294967295", "--slow", "rof", "--watch", "--speed",
                                     "60", "--delay", "2.5", "--break-off", "--once", "--quiet"});
    EXPECT_EQ(line.dir, "rof");
    EXPECT_TRUE(line.watch && line.once && line.quiet && line.flight.breakOff);
    EXPECT_FALSE(line.fly || line.flight.killPlayer || line.flight.truncateLastPiece);
    EXPECT_EQ(line.flight.seed, 4294967295U);
    EXPECT_DOUBLE_EQ(line.flight.piecePause, 0.5);
    EXPECT_DOUBLE_EQ(line.flight.delay, 2.5);
    EXPECT_DOUBLE_EQ(parsed({"rof", "--fly", "--slow"}).flight.piecePause, 30);
    EXPECT_DOUBLE_EQ(parsed({"rof", "--fly"}).flight.piecePause, 0);
    EXPECT_EQ(parsed({"rof", "--fly", "--mission", "A.Mission"}).mission, "A.Mission");
    EXPECT_TRUE(parsed({"--help"}).help);
}

TEST(CommandLine, RefusesWrongCalls) {
    // clang-format off
    for (const char* call : {
             "", "a b", "a --fly --watch", "a --once", "a --sed 1", "a --fly --seed",
             "a --fly --seed 0", "a --fly --seed -1", "a --fly --seed 12x",
             "a --fly --seed 4294967296", "a --fly --delay soon", "a --fly --delay -1",
             "a --fly --delay nan", "a --fly --speed 2", "a --fly --slow --speed 0",
             "a --watch --mission x", "a --fly --kill-player --wound-player", "a --seed 5"})
        EXPECT_NE(errorOf(call), "") << call;
    // clang-format on
}

} // namespace standin
