#include "app/mission/Configuration.h"

#include <gtest/gtest.h>

#include "app/mission/SimulatorCheck.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct ConfigurationTest : testing::Test {
    ConfigurationTest() { Configuration::reset(); }
    ~ConfigurationTest() override { Configuration::reset(); }

    void load(const char* text) { Configuration::load(folder.write("settings.ini", text)); }
    zel::String rofDirectoryOf(const char* text) {
        Configuration::reset();
        load(text);
        return Configuration::getRofDirectory();
    }

    TemporaryFolder folder;
    LogCapture lines;
};

TEST_F(ConfigurationTest, ReadsAnEntryALine) {
    load("  First = 1 \r\n"
         "#second=2\n"
         " # second = 3\n"
         "\tthird=4\n"
         "no entry\n"
         "Fourth==x = y\n"
         "fifth=\n"
         "SIXTH=a\n"
         "sixth = b");
    for (const auto& [key, value] : {std::pair{"first", "1"},
                                     {"FIRST", "1"},
                                     {"\tthird", "4"}, // a tab stays part of the key
                                     {"fourth", "=x = y"},
                                     {"sixth", "b"}}) // the later one wins
        EXPECT_EQ(Configuration::get(key, "no"), value);
    for (const char* none : {"second", "#second", "third", "no entry", "fifth"})
        EXPECT_EQ(Configuration::get(none, "no"), "no") << none;

    load("first=7\n");
    EXPECT_EQ(Configuration::get("first", "no"), "7");
    EXPECT_EQ(Configuration::get("sixth", "no"), "b") << "a second file adds to the first";
    Configuration::load(folder.file("missing.ini"));
    EXPECT_EQ(Configuration::get("first", "no"), "7");
}

TEST_F(ConfigurationTest, MakesTheFolderAPrefix) {
    EXPECT_EQ(rofDirectoryOf("ROF.DIRECTORY = D:\\Games\\RoF"), "D:\\Games\\RoF\\");
    EXPECT_EQ(rofDirectoryOf("rof.directory=D:\\Games\\RoF"), "D:\\Games\\RoF\\");
    EXPECT_EQ(rofDirectoryOf("rof.directory=D:\\Games\\RoF\\"), "D:\\Games\\RoF\\\\");
    Configuration::set("rof.directory", "elsewhere");
    EXPECT_EQ(Configuration::getRofDirectory(), "D:\\Games\\RoF\\\\") << "found once per run";
#ifndef _WIN32
    EXPECT_EQ(rofDirectoryOf("#rof.directory=x\n"), "");
    Configuration::set("rof.directory", "late");
    EXPECT_EQ(Configuration::getRofDirectory(), "late\\") << "nothing found is not kept";
#endif
}

// Today's editors save UTF-8: Windows knows the folder by its code page, other systems by bytes.
TEST_F(ConfigurationTest, NamesTheFolderThatIsMeant) {
#ifdef _WIN32
    const zel::String meant = "D:\\Spiele\\F\xFCr mich\\";
#else
    const zel::String meant = "D:\\Spiele\\F\u00FCr mich\\";
#endif
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        const std::string text = mark + "rof.directory=D:\\Spiele\\F\u00FCr mich\r\n";
        EXPECT_EQ(rofDirectoryOf(text.c_str()), meant);
    }
}

TEST_F(ConfigurationTest, ChecksTheSimulator) {
    Configuration::set("rof.directory", folder.path());
    EXPECT_EQ(checkSimulator(), SimulatorState::NotFound);

    const std::pair<const char*, SimulatorState> cases[] = {
        {"", SimulatorState::NotFound},
        {"[KEY = system]\r\n\tgamelog = 1\r\n[END]\r\n", SimulatorState::NoTextLog},
        {"mission_text_log = 0\n", SimulatorState::NoTextLog},
        {"mission_text_log =\n", SimulatorState::NoTextLog},
        {"x_mission_text_log = 1\n", SimulatorState::NoTextLog},
        {"[KEY = system]\r\n\tmission_text_log = 1\r\n[END]\r\n", SimulatorState::Ready},
        {" \t MISSION_Text_Log\t=\t1\n", SimulatorState::Ready},
        {"mission_text_log=0\nmission_text_log=1\n", SimulatorState::Ready},
        {"mission_text_log=1\nmission_text_log=0\n", SimulatorState::NoTextLog},
    };
    for (const auto& [text, state] : cases) {
        folder.write("data/startup.cfg", text);
        EXPECT_EQ(checkSimulator(), state) << text;
    }
    EXPECT_TRUE(lines.holds("CHECKING FILE: " + folder.path() + "\\data\\startup.cfg\n"));
    EXPECT_TRUE(lines.holds("FILE EXISTS: 0\n"));
    EXPECT_TRUE(lines.holds("MISSION_TEXT_LOG: 1\n"));
}

} // namespace
