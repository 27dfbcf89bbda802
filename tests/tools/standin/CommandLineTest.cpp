#include "tools/standin/CommandLine.h"

#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

namespace standin {

namespace {

/// The result of reading a call's words, separated by blanks.
tools::CallReading read(const char* text, StandInCall& call) {
    std::istringstream stream(text);
    return readStandInCall({std::istream_iterator<std::string>(stream), {}}, call);
}

StandInCall callOf(const char* text) {
    StandInCall call;
    EXPECT_EQ(read(text, call).text, "");
    return call;
}

} // namespace

TEST(StandInCommandLine, TakesOptionsInAnyOrder) {
    const StandInCall call = callOf("--seed 4294967295 --slow rof --watch --speed 60 --delay 2.5 "
                                    "--break-off --once --quiet");
    EXPECT_EQ(call.dir, "rof");
    EXPECT_TRUE(call.watch && call.once && call.quiet && call.flight.breakOff);
    EXPECT_FALSE(call.fly || call.flight.killPlayer || call.flight.woundPlayer ||
                 call.flight.truncateLastPiece);
    EXPECT_EQ(call.flight.seed, 4294967295U);
    EXPECT_DOUBLE_EQ(call.flight.piecePause, 0.5);
    EXPECT_DOUBLE_EQ(call.flight.delay, 2.5);
    EXPECT_DOUBLE_EQ(callOf("rof --fly --slow").flight.piecePause, 30);
    EXPECT_DOUBLE_EQ(callOf("rof --fly").flight.piecePause, 0);
    const StandInCall other = callOf("rof --fly --mission A.Mission --truncate --wound-player");
    EXPECT_EQ(other.mission, "A.Mission");
    EXPECT_TRUE(other.flight.truncateLastPiece && other.flight.woundPlayer);
}

TEST(StandInCommandLine, RefusesWrongCalls) {
    // clang-format off
    for (const char* text : {
             "", "a b", "a --fly --watch", "a --once", "a --sed 1", "a --fly --seed",
             "a --fly --seed 0", "a --fly --seed -1", "a --fly --seed 12x",
             "a --fly --seed 4294967296", "a --fly --delay soon", "a --fly --delay -1",
             "a --fly --delay nan", "a --fly --speed 2", "a --fly --slow --speed 0",
             "a --watch --mission x", "a --fly --kill-player --wound-player", "a --seed 5",
             "a --break-off"}) {
        StandInCall call;
        EXPECT_EQ(read(text, call).kind, tools::CallKind::Wrong) << text;
    }
    // clang-format on
}

} // namespace standin
