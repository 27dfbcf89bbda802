#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/standin/log/LogRules.h"
#include "tests/standin/mission/TestMission.h"
#include "tests/support/ProgramCall.h"
#include "tests/support/TemporaryFolder.h"

// The program as a player calls it. STANDIN_PROGRAM is its path in the build tree.
namespace standin {

namespace {

constexpr const char* MissionPath = "rof/data/Missions/WingtallyMission.Mission";

bool has(const TemporaryFolder& folder, const std::string& name) {
    return std::filesystem::exists(folder.path() + "/" + name);
}

ProgramCall call(const std::string& words, const std::string& wrapper = "") {
    return ProgramCall(STANDIN_PROGRAM, words, ".", wrapper);
}

/// The joined log of the only flight in the folder.
std::vector<LogLine> onlyLog(const TemporaryFolder& folder) {
    std::string log;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() + "/rof/data")) {
        const std::string path = entry.path().string();
        const size_t number = path.find("[0].txt");
        if (number == path.npos)
            continue;
        EXPECT_EQ(log, "") << "a second log";
        log = path.substr(0, number);
    }
    return linesOf(readPieces(log));
}

} // namespace

TEST(Program, DistinguishesWrongCallsFromFailures) {
    const TemporaryFolder folder;
    const std::string rof = folder.path() + "/rof";
    ProgramCall result = call("");
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("Usage: wingtally-standin DIR"), result.errors.npos);
    EXPECT_EQ(call(rof + " --fly --seed x").status, 2);
    EXPECT_FALSE(has(folder, "rof")) << "invalid arguments do nothing";

    for (int32_t i = 0; i < 2; ++i) { // no mission, then a wrong one
        result = call(rof + " --fly");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
        folder.write(MissionPath, replaced(smallMission(), "AILevel = 2", "AILevel = 7"));
    }
    EXPECT_EQ(call(rof + " --watch --once").status, 1);
    EXPECT_EQ(call(folder.write("file", "") + "/rof").status, 1);
}

TEST(Program, FliesAndSaysSo) {
    const TemporaryFolder folder;
    EXPECT_EQ(call(folder.path() + "/rof").status, 0);
    EXPECT_TRUE(has(folder, "rof/data/startup.cfg"));
    folder.write(MissionPath, missionText(sixPlanes()));
    const ProgramCall result = call(folder.path() + "/rof --fly --seed 11 --kill-player");
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_NE(result.output.find("seed 11"), result.output.npos) << result.output;
    EXPECT_NE(result.output.find("Erich Sommer/7 (you), "), result.output.npos) << result.output;
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(humanPartOf(onlyLog(folder)).dead);
}

#ifndef _WIN32
/// Interrupts a program once the log of its folder, the word after it, has a second piece; gives up
/// after a minute.
constexpr const char* InterruptInFlight = R"("$@" & program=$!
tries=600
until ls "$2"/data/*'[1].txt' >/dev/null 2>&1 || [ "$tries" = 0 ]; do
    sleep 0.1
    tries=$((tries - 1))
done
kill -INT "$program"
wait "$program"
)";

TEST(Program, EndsCleanlyWhenInterrupted) {
    const TemporaryFolder folder;
    folder.write(MissionPath, missionText(sixPlanes()));
    const std::string script = folder.write("interrupt.sh", InterruptInFlight);
    // A piece each second: most of the flight is left when the interrupt comes.
    const ProgramCall result =
        call(folder.path() + "/rof" + " --watch --seed 2 --slow --speed 30 --quiet",
             "sh " + script + " ");
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output + result.errors, "");
    const std::vector<LogLine> log = onlyLog(folder);
    EXPECT_GT(log.size(), 5U) << "it was flying";
    EXPECT_FALSE(humanPartOf(log).ended) << "and the log just stops";
}
#endif

} // namespace standin
