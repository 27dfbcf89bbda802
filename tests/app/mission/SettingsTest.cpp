#include "app/mission/Settings.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "app/mission/Configuration.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// The player's folder, the one that the program is started from and the one of its files.
struct SettingsTest : testing::Test {
    SettingsTest() {
        Configuration::reset();
        zel::setUserDirectory(folder.file("user"));
        for (const char* name : {"start/x", "files/x"})
            folder.write(name, "");
    }
    ~SettingsTest() override {
        zel::system::changeDirectory(before);
        noteStartFolder();
        Configuration::reset();
        zel::setUserDirectory("");
    }

    /// As the program starts.
    void start() {
        zel::system::changeDirectory(folder.file("start"));
        noteStartFolder();
        zel::system::changeDirectory(folder.file("files"));
        loadSettings();
    }

    TemporaryFolder folder;
    zel::String before = zel::system::currentDirectory();
};

TEST_F(SettingsTest, ComeFromThreeFolders) {
    folder.write("user/wtysettings.ini", "a=user\nb=user\nc=user\n");
    folder.write("files/wtysettings.ini", "b=files\nc=files\nrof.directory=elsewhere\n");
    folder.write("start/wtysettings.ini", "c=start\nrof.directory=games/rof\n");
    start();
    EXPECT_EQ(Configuration::get("a", ""), "user");
    EXPECT_EQ(Configuration::get("b", ""), "files");
    EXPECT_EQ(Configuration::get("c", ""), "start");
    using std::filesystem::path;
    EXPECT_EQ(path(Configuration::getRofDirectory().c_str()),
              path(folder.file("start/games/rof") + "\\"))
        << "as seen from the settings that name it";
}

// In a folder that is there; where two have settings, the later one of these goes first.
TEST_F(SettingsTest, AreToBeWrittenWhereThePlayerCan) {
    start();
    for (const std::string name : {"user", "files", "start"}) {
        if (name != "user")
            folder.write(name + "/wtysettings.ini", "");
        const std::filesystem::path file(settingsFileToWrite().c_str());
        EXPECT_TRUE(std::filesystem::equivalent(file.parent_path(), folder.path() + "/" + name))
            << file;
        EXPECT_EQ(std::filesystem::exists(file), name != "user");
    }
}

} // namespace
