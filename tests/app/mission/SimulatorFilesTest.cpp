#include <filesystem>

#include <gtest/gtest.h>

#include "app/mission/SimulatorChecks.h"
#include "app/mission/SimulatorSetting.h"
#include "app/mission/TextLogLines.h"
#include "app/mission/TextLogSwitch.h"
#include "engine/core/System.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

struct Change {
    const char* before;
    const char* after;
};

TEST(TextLogLines, KeepEveryOtherByte) {
    constexpr Change Cases[] = {
        {"[KEY = system]\r\n\tgamelog = 1\r\n\tmission_text_log = 0\r\n[END]\r\n",
         "[KEY = system]\r\n\tgamelog = 1\r\n\tmission_text_log = 1\r\n[END]\r\n"},
        {"[KEY=system]\n MISSION_text_log=0 // off \n[END]",
         "[KEY=system]\n MISSION_text_log=1 // off \n[END]"},
        {"[KEY = system]\nmission_text_log = 0", "[KEY = system]\nmission_text_log = 1"},
        {"[KEY = system]\nmission_text_log =\n", "[KEY = system]\nmission_text_log = 1\n"},
        {"mission_text_log =  \t\n", "mission_text_log =  \t1\n"},
        // Text right after the value, and text that isn't a value.
        {"mission_text_log = 0;\n", "mission_text_log = 1;\n"},
        {"mission_text_log=-0//note", "mission_text_log=1//note"},
        {"mission_text_log = off# 0\n", "mission_text_log = 1# 0\n"},
        {"mission_text_log = // off\n", "mission_text_log = 1 // off\n"},
        // Twice, with one of them on, and lines of either end.
        {"[KEY = system]\r\nmission_text_log = 1\n\xE9\rmission_text_log = 0\n[END]\r",
         "[KEY = system]\r\nmission_text_log = 1\n\xE9\rmission_text_log = 1\n[END]\r"},
        // A section without it, among others; the new line begins and ends like its neighbours.
        {"[KEY = a]\n\tb = 1\n[END]\n\n[KEY = System]\r\n  gamelog = 1\r\n\r\n[END]\r\n[KEY = z]\n",
         "[KEY = a]\n\tb = 1\n[END]\n\n[KEY = System]\r\n  gamelog = 1\r\n"
         "  mission_text_log = 1\r\n\r\n[END]\r\n[KEY = z]\n"},
        {"[KEY = system]\n[END]", "[KEY = system]\n\tmission_text_log = 1\n[END]"},
        {"[KEY = system]\n gamelog = 1", "[KEY = system]\n gamelog = 1\n mission_text_log = 1"},
        // A line in another section isn't the simulator's.
        {"[KEY = a]\nmission_text_log = 1\n[END]\n[KEY = system]\n[END]\n",
         "[KEY = a]\nmission_text_log = 1\n[END]\n[KEY = system]\n\tmission_text_log = 1\n[END]\n"},
        {"[KEY = a]\nmission_text_log = 0\n[END]\n",
         "[KEY = a]\nmission_text_log = 1\n[END]\n[KEY = system]\n\tmission_text_log = 1\n[END]\n"},
        // No section.
        {"[KEY = a]\r\nx_mission_text_log = 0\r\n[END]",
         "[KEY = a]\r\nx_mission_text_log = 0\r\n[END]\r\n"
         "[KEY = system]\r\n\tmission_text_log = 1\r\n[END]\r\n"},
        {"\n", "\n[KEY = system]\n\tmission_text_log = 1\n[END]\n"},
    };
    for (const auto& [before, after] : Cases) {
        EXPECT_EQ(withTextLogOn(before), after) << before;
        EXPECT_EQ(withTextLogOn(after), after) << "it is on";
        EXPECT_EQ(textLogValue(withTextLogOn(before)), 1) << before;
    }
}

struct SimulatorFiles : testing::Test {
    SwitchOutcome switchOn(bool isRunning = false) {
        last = switchTextLogOn(folder.path(), isRunning);
        return last.outcome;
    }
    size_t fileCount() const {
        return static_cast<size_t>(std::distance(fs::directory_iterator(folder.path() + "/data"),
                                                 fs::directory_iterator()));
    }

    TemporaryFolder folder;
    LogCapture lines;
    TextLogSwitch last;
    const char* const cfg = "data/startup.cfg";
    const char* const backup = "data/startup.cfg.wingtally-bak";
};

TEST_F(SimulatorFiles, KeepEachFormerFileOnce) {
    const std::string first = "mission_text_log = 0\n";
    const std::string second = "mission_text_log = 0\nmore\n";
    folder.write(cfg, first);
    EXPECT_EQ(switchOn(), SwitchOutcome::Done);
    EXPECT_EQ(folder.read(cfg), "mission_text_log = 1\n");
    EXPECT_EQ(folder.read(backup), first);
    EXPECT_NE(last.text().view().find("startup.cfg.wingtally-bak."), std::string_view::npos);
    EXPECT_EQ(switchOn(), SwitchOutcome::AlreadyOn);
    folder.write(cfg, first);
    EXPECT_EQ(switchOn(), SwitchOutcome::Done);
    EXPECT_EQ(fileCount(), 2u) << "the same content needs no second backup";
    folder.write(cfg, second);
    EXPECT_EQ(switchOn(), SwitchOutcome::Done);
    EXPECT_EQ(folder.read(backup), first);
    EXPECT_EQ(folder.read(std::string(backup) + "-2"), second);
    EXPECT_EQ(fileCount(), 3u);
}

TEST_F(SimulatorFiles, StayAsTheyAreWhereTheLogCantBeSwitchedOn) {
    EXPECT_EQ(switchOn(), SwitchOutcome::NoFile);
    folder.write(cfg, "");
    EXPECT_EQ(switchOn(), SwitchOutcome::NoFile);
    const std::string wide("m\0i\0", 4);
    folder.write(cfg, wide);
    EXPECT_EQ(switchOn(), SwitchOutcome::NotText);
    EXPECT_EQ(folder.read(cfg), wide);
    folder.write(cfg, "x\n");
    EXPECT_EQ(switchOn(true), SwitchOutcome::SimulatorRuns);
    fs::permissions(folder.file(cfg), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(switchOn(), SwitchOutcome::NotWritten);
    EXPECT_EQ(last.fault, zel::FileFault::ReadOnly);
    EXPECT_EQ(folder.read(cfg), "x\n");
    EXPECT_EQ(fileCount(), 1u) << "nothing is left";
    fs::permissions(folder.file(cfg), fs::perms::owner_all);
}

TEST_F(SimulatorFiles, AreChecked) {
    EXPECT_FALSE(checkSimulatorIn(folder.path()).isThere);
    folder.write(cfg, "mission_text_log = 0\n");
    SimulatorChecks checks = checkSimulatorIn(folder.path());
    EXPECT_TRUE(checks.isThere);
    EXPECT_EQ(checks.textLog, TextLog::Off);
    EXPECT_EQ(checks.missionsFault, zel::FileFault::Missing);
    EXPECT_EQ(checks.newestLog, "");
    switchOn();
    fs::create_directory(folder.file("data/Missions"));
    const auto now = fs::last_write_time(folder.file(cfg));
    for (const int32_t hour : {3, 1, 2}) {
        const std::string name = "data/missionReport(" + std::to_string(hour) + ")[0].txt";
        fs::last_write_time(folder.write(name, "x"), now - std::chrono::hours(hour));
    }
    folder.write("data/missionReport(1)[1].txt", "x");
    checks = checkSimulatorIn(folder.path());
    EXPECT_TRUE(checks.isReady());
    EXPECT_EQ(checks.newestLog, "missionReport(1)[0].txt");
    EXPECT_GT(checks.newestLogTime.year, 2000);
    EXPECT_TRUE(fs::is_empty(folder.file("data/Missions"))) << "the trial leaves nothing";
    folder.write("data/Missions/WingtallyMission.Mission", "x");
    fs::permissions(folder.file("data/Missions/WingtallyMission.Mission"), fs::perms::owner_read);
    EXPECT_EQ(checkSimulatorIn(folder.path()).missionsFault, zel::FileFault::ReadOnly);
    EXPECT_FALSE(checkSimulatorIn("").isThere);
    fs::create_directories(folder.file("bin/game"));
    EXPECT_FALSE(checkSimulatorIn(folder.path()).isThere) << "that is a later simulator";
}

TEST(SimulatorSetting, KeepsTheRestOfTheFile) {
    constexpr Change Cases[] = {
        {"", "rof.directory=X\n"},
        {"# mine\r\nother=1", "# mine\r\nother=1\r\nrof.directory=X\r\n"},
        {"a=1\r\n  ROF.directory =  old  \r\nb=2\n", "a=1\r\n  ROF.directory =  X\r\nb=2\n"},
        {"rof.directory=\n", "rof.directory=X\n"},
        {"rof.directory=1\nrof.directory=2\n", "rof.directory=1\nrof.directory=X\n"},
        {"# head\r\n# rof.directory=C:\\a\r\n\r\nb=2\r\n",
         "# head\r\n# rof.directory=C:\\a\r\nrof.directory=X\r\n\r\nb=2\r\n"},
        {"\xEF\xBB\xBFrof.directory=old", "\xEF\xBB\xBFrof.directory=X"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBFrof.directory=X\n"},
        {"rof.directory\nx\rmy.rof.directory=1\r",
         "rof.directory\nx\rmy.rof.directory=1\rrof.directory=X\r"},
    };
    for (const auto& [before, after] : Cases)
        EXPECT_EQ(withSetting(before, "rof.directory", "X"), after) << before;
}

} // namespace
