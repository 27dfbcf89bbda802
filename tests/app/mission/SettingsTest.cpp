#include "app/mission/Settings.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "app/mission/Configuration.h"
#include "app/mission/SimulatorSetting.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

/// The player's folder, the one that the program is started from, and the one with its files.
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

    /// Does what the program does at its start.
    void start() {
        zel::system::changeDirectory(folder.file("start"));
        noteStartFolder();
        zel::system::changeDirectory(folder.file("files"));
        loadSettings();
    }

    TemporaryFolder folder;
    LogCapture lines;
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

// Settings in a folder that exists; if two folders have some, the later one overrides the other.
TEST_F(SettingsTest, AreWrittenWhereThePlayerMay) {
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

// The name of a folder, and the file that must have the setting then.
TEST_F(SettingsTest, TakeTheSimulatorWhereItCounts) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "user"},                      // none is there
        {"files", "files"},                // one without the setting
        {"user=x", "user"},                // the only one with it
        {"user=x files", "user"},          // the only one with it, overridden by none
        {"user=x files=x start", "files"}, // the later one of two
        {"user=x files=x start=x", "start"},
        {"files locked", "user"}, // it may not be written, and doesn't matter
    };
    const std::string simulator = folder.path() + "/Rise of Flight \xC3\xA9";
    folder.write("Rise of Flight \xC3\xA9/x", "");
    for (const auto& [files, written] : cases) {
        const fs::path locked = folder.file("files/wtysettings.ini");
        for (const std::string name : {"user", "files", "start"}) {
            const std::string file = name + "/wtysettings.ini";
            fs::remove(folder.file(file));
            if (files.find(name) != std::string::npos)
                folder.write(file, files.find(name + "=") != std::string::npos
                                       ? "# one\nrof.directory=old\n"
                                       : "# one\n");
        }
        if (files.find("locked") != std::string::npos)
            fs::permissions(locked, fs::perms::owner_read);
        start();
        const SettingWritten result = writeSimulatorFolder(simulator + "/");
        EXPECT_EQ(result.fault, zel::FileFault::None) << files;
        EXPECT_TRUE(fs::equivalent(fs::path(result.file.c_str()).parent_path(),
                                   folder.path() + "/" + written))
            << files << ": " << result.file.c_str();
        EXPECT_EQ(fs::path(Configuration::getRofDirectory().c_str()), fs::path(simulator + "\\"))
            << files;
        if (fs::exists(locked))
            fs::permissions(locked, fs::perms::owner_all);
    }
    folder.write("start/wtysettings.ini", "rof.directory=old\n");
    fs::permissions(folder.file("start/wtysettings.ini"), fs::perms::owner_read);
    EXPECT_EQ(writeSimulatorFolder(simulator).fault, zel::FileFault::ReadOnly);
    EXPECT_EQ(folder.read("start/wtysettings.ini"), "rof.directory=old\n");
    // A start folder that is gone overrides nothing.
    fs::permissions(folder.file("start/wtysettings.ini"), fs::perms::owner_all);
    fs::remove_all(folder.path() + "/start");
    EXPECT_EQ(writeSimulatorFolder(simulator).fault, zel::FileFault::None);
    EXPECT_EQ(fs::path(Configuration::getRofDirectory().c_str()), fs::path(simulator + "\\"));
#ifndef _WIN32
    const std::string before = folder.read("user/wtysettings.ini");
    for (const char* unheld : {" ", "\nb"})
        EXPECT_EQ(writeSimulatorFolder(simulator + unheld).fault, zel::FileFault::Other);
    EXPECT_EQ(folder.read("user/wtysettings.ini"), before);
    EXPECT_EQ(Configuration::get("rof.directory", ""), simulator);
#endif
}

} // namespace
