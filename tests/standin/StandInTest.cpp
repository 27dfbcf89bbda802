#include "standin/StandIn.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "tests/standin/log/LogRules.h"
#include "tests/standin/mission/TestMission.h"
#include "tests/support/TemporaryFolder.h"

namespace standin {

namespace {

constexpr const char* MissionPath = "data/Missions/WingtallyMission.Mission";
constexpr const char* Stamp = "2024-05-02_20-15-33";

bool has(const TemporaryFolder& folder, const std::string& name) {
    return std::filesystem::exists(folder.path() + "/" + name);
}

/// The pieces of a log.
std::vector<std::string> piecesOf(const TemporaryFolder& folder, const std::string& stamp = Stamp) {
    return readPieces(folder.path() + "/data/missionReport(" + stamp + ")");
}

FlightOptions pinned(uint32_t seed, const std::string& stamp = Stamp) {
    FlightOptions options;
    options.seed = seed;
    options.stamp = stamp;
    return options;
}

/// A simulator's folder with the mission of six planes.
struct StandInFlights : testing::Test {
    StandInFlights() {
        tools::Finding finding;
        EXPECT_TRUE(makeSimulatorFolder(folder.path(), finding)) << finding.text();
        folder.write(MissionPath, missionText(sixPlanes()));
    }
    FlightSummary flown(const FlightOptions& options,
                        const std::string& mission = "WingtallyMission.Mission") const {
        FlightSummary summary;
        tools::Finding finding;
        EXPECT_TRUE(flyMission(folder.path(), mission, options, finding, &summary))
            << finding.text();
        return summary;
    }
    std::string errorOf(const FlightOptions& options,
                        const std::string& mission = "WingtallyMission.Mission") const {
        tools::Finding finding;
        return flyMission(folder.path(), mission, options, finding, nullptr) ? "" : finding.text();
    }

    TemporaryFolder folder;
};

} // namespace

TEST(StandIn, MakesASimulatorFolder) {
    const TemporaryFolder folder;
    tools::Finding finding;
    ASSERT_TRUE(makeSimulatorFolder(folder.path() + "/deep/rof", finding)) << finding.text();
    EXPECT_TRUE(has(folder, "deep/rof/data/Missions"));
    const std::string startup = folder.read("deep/rof/data/startup.cfg");
    EXPECT_NE(startup.find("mission_text_log = 1\r\n"), startup.npos);
    const std::string own = "[KEY = system]\r\n\tmission_text_log = 0\r\n[END]";
    folder.write("deep/rof/data/startup.cfg", own);
    ASSERT_TRUE(makeSimulatorFolder(folder.path() + "/deep/rof", finding));
    EXPECT_EQ(folder.read("deep/rof/data/startup.cfg"), own) << "somebody's own stays as it is";
    folder.write("file", "");
    EXPECT_FALSE(makeSimulatorFolder(folder.path() + "/file", finding));
    EXPECT_FALSE(makeSimulatorFolder("", finding));
}

TEST_F(StandInFlights, FliesTheSameMissionTheSameWay) {
    const FlightSummary summary = flown(pinned(9));
    EXPECT_TRUE(summary.finished);
    EXPECT_EQ(summary.seed, 9U);
    EXPECT_EQ(summary.logName, "missionReport(2024-05-02_20-15-33)[0].txt");
    const std::vector<std::string> pieces = piecesOf(folder);
    EXPECT_EQ(pieces.size(), static_cast<size_t>(summary.pieces));
    expectRules(pieces, true);
    // The second log may not touch the first; it takes the next second.
    EXPECT_EQ(flown(pinned(9)).logName, "missionReport(2024-05-02_20-15-34)[0].txt");
    EXPECT_EQ(piecesOf(folder, "2024-05-02_20-15-34"), pieces);
    flown(pinned(10));
    EXPECT_NE(piecesOf(folder, "2024-05-02_20-15-35"), pieces);
    zel::setWallTimeSource([] { return zel::WallTime{2017, 12, 31, 23, 59, 59}; });
    EXPECT_EQ(flown(pinned(10, "")).logName, "missionReport(2017-12-31_23-59-59)[0].txt");
    EXPECT_EQ(flown(pinned(10, "")).logName, "missionReport(2018-01-01_00-00-00)[0].txt");
    zel::setWallTimeSource(nullptr);
}

TEST_F(StandInFlights, SumsTheFlightUp) {
    int32_t victories = 0;
    for (uint32_t seed = 1; seed <= 20; ++seed) {
        const std::string stamp = "2024-01-01_00-00-" + std::to_string(10 + seed);
        const FlightSummary summary = flown(pinned(seed, stamp));
        const HumanPart human = humanPartOf(linesOf(piecesOf(folder, stamp)));
        ASSERT_EQ(summary.planes.size(), 6U);
        EXPECT_TRUE(summary.planes[0].isPlayer);
        EXPECT_EQ(summary.planes[0].dead, human.dead) << "seed " << seed;
        EXPECT_EQ(summary.planes[0].lost, human.planeLost) << "seed " << seed;
        victories += summary.planes[0].victories;
        EXPECT_NE(describe(summary).find("Erich Sommer/7 (you)"), std::string::npos);
    }
    EXPECT_GT(victories, 0);
}

// What was asked for is in the log, although it breaks off.
TEST_F(StandInFlights, HeedsItsOptions) {
    for (uint32_t seed = 1; seed <= 20; ++seed) {
        FlightOptions options = pinned(seed, "2024-05-02_21-00-" + std::to_string(10 + seed));
        options.killPlayer = seed % 2 == 0;
        options.woundPlayer = options.breakOff = true;
        EXPECT_FALSE(flown(options).finished);
        const HumanPart human = humanPartOf(linesOf(piecesOf(folder, options.stamp)));
        EXPECT_EQ(human.dead, options.killPlayer) << "death overrides a wound";
        EXPECT_GT(human.wounds, 0) << seed;
        EXPECT_FALSE(human.finished || human.ended) << seed;
    }
    FlightOptions options = pinned(4);
    options.truncateLastPiece = true;
    flown(options);
    EXPECT_NE(piecesOf(folder).back().back(), '\n');
}

TEST_F(StandInFlights, WritesPieceByPieceUntilItIsInterrupted) {
    std::vector<double> waits;
    size_t interruption = 999; // the wait in which it is interrupted
    FlightOptions options = pinned(5);
    options.delay = 7;
    options.piecePause = 1.5;
    options.wait = [&](double seconds) {
        EXPECT_EQ(piecesOf(folder, options.stamp).size() + 1, std::max<size_t>(waits.size(), 1))
            << "a piece after each pause";
        waits.push_back(seconds);
        return waits.size() < interruption;
    };
    FlightSummary summary = flown(options);
    ASSERT_EQ(waits.size(), static_cast<size_t>(summary.pieces) + 1);
    EXPECT_DOUBLE_EQ(waits[0], 7);
    EXPECT_DOUBLE_EQ(waits[1], 1.5);
    for (const int32_t pieces : {3, 0}) {
        options.stamp = pieces == 0 ? "2024-05-02_21-00-00" : "2024-05-02_22-00-00";
        interruption = pieces == 0 ? 1 : static_cast<size_t>(pieces) + 2;
        waits.clear();
        summary = flown(options);
        EXPECT_TRUE(summary.interrupted && !summary.finished);
        EXPECT_EQ(summary.pieces, pieces);
        EXPECT_EQ(piecesOf(folder, options.stamp).size(), static_cast<size_t>(pieces));
    }
}

TEST_F(StandInFlights, SaysWhyItDoesNotFly) {
    const std::string data = folder.path() + "/data";
    EXPECT_EQ(errorOf(pinned(1), "Other.Mission"),
              data + "/Missions: there is no mission Other.Mission");
    folder.write("data/Missions/Broken.Mission",
                 replaced(smallMission(), "AILevel = 2", "AILevel = 7"));
    const std::string broken = errorOf(pinned(1), "Broken.Mission");
    EXPECT_EQ(broken.rfind(data + "/Missions/Broken.Mission:", 0), 0U) << broken;
    EXPECT_NE(broken.find(": AILevel is outside 0 to 4"), broken.npos) << broken;
    for (const char* stamp : {"today", "2024-05-02", "2024-5-2_20-15-33", "2024-05-02_20-15-33x"})
        EXPECT_NE(errorOf(pinned(1, stamp)), "") << stamp;
    folder.write("data/startup.cfg", "[KEY = system]\r\nmission_text_log = 0\r\n[END]\r\n");
    EXPECT_NE(errorOf(pinned(1)).find("mission_text_log"), std::string::npos);
    EXPECT_TRUE(piecesOf(folder).empty()) << "nothing is written without a flight";
}

TEST_F(StandInFlights, FindsMissionsByEitherName) {
    folder.write("other/Second.Mission", smallMission());
    EXPECT_EQ(flown(pinned(1), "other/Second.Mission").mission, "Second.Mission");
    EXPECT_NE(piecesOf(folder)[0].find("MFile:Missions/Second.mission "), std::string::npos);
    EXPECT_EQ(flown(pinned(1), "data\\Missions\\WingtallyMission.Mission").mission,
              "WingtallyMission.Mission");
}

} // namespace standin
