#include "standin/MissionWatch.h"

#include <chrono>
#include <filesystem>

#include <gtest/gtest.h>

#include "standin/StandIn.h"
#include "tests/support/TemporaryFolder.h"

namespace standin {

namespace {

constexpr const char* MissionFile = "data/Missions/One.Mission";
constexpr const char* Log = "data/missionReport(2024-05-02_20-15-33)[0].txt";

/// Sets a file's time of change, in seconds from now.
void setAge(const TemporaryFolder& folder, const std::string& name, int32_t seconds) {
    std::filesystem::last_write_time(folder.path() + "/" + name,
                                     std::filesystem::file_time_type::clock::now() +
                                         std::chrono::seconds(seconds));
}

} // namespace

TEST(MissionWatch, GivesOutEachMissionOnce) {
    const TemporaryFolder folder;
    folder.write("data/Missions/note.txt", "no mission");
    MissionWatch watch(folder.path());
    EXPECT_EQ(watch.poll(), "");
    folder.write(MissionFile, "half a mission");
    EXPECT_EQ(watch.poll(), "") << "it may still be written";
    folder.write(MissionFile, "half a mission and the rest");
    EXPECT_EQ(watch.poll(), "");
    EXPECT_EQ(watch.poll(), "One.Mission") << "now it has stopped changing";
    EXPECT_EQ(watch.poll(), "");
    EXPECT_EQ(watch.poll(), "");
    setAge(folder, MissionFile, 5);
    EXPECT_EQ(watch.poll(), "");
    EXPECT_EQ(watch.poll(), "One.Mission") << "the same text written again is a new mission";
    folder.write("data/Missions/TWO.MISSION", "x");
    folder.write("data/Missions/three.mission", "x");
    EXPECT_EQ(watch.poll(), "");
    EXPECT_EQ(watch.poll(), "three.mission");
    EXPECT_EQ(watch.poll(), "TWO.MISSION");
    EXPECT_EQ(watch.poll(), "");
}

TEST(MissionWatch, LeavesOutWhatWasFlownBefore) {
    const TemporaryFolder folder;
    folder.write(MissionFile, "a mission");
    folder.write(Log, "its log");
    setAge(folder, MissionFile, -60);
    setAge(folder, Log, -30);
    MissionWatch watch(folder.path());
    watch.poll();
    EXPECT_EQ(watch.poll(), "");
    setAge(folder, MissionFile, -10);
    MissionWatch later(folder.path());
    later.poll();
    EXPECT_EQ(later.poll(), "One.Mission") << "written after the last flight";
    setAge(folder, Log, 3600);
    MissionWatch earlier(folder.path());
    earlier.poll();
    EXPECT_EQ(earlier.poll(), "One.Mission") << "the clock was set back since the last flight";
}

TEST(MissionWatch, FindsTheNewestMission) {
    const TemporaryFolder folder;
    EXPECT_EQ(newestMission(folder.path()), "");
    folder.write(MissionFile, "x");
    folder.write("data/Missions/Two.Mission", "x");
    setAge(folder, MissionFile, 10);
    EXPECT_EQ(newestMission(folder.path()), "One.Mission");
    setAge(folder, "data/Missions/Two.Mission", 20);
    EXPECT_EQ(newestMission(folder.path()), "Two.Mission");
}

} // namespace standin
