#include "engine/core/System.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

TEST(Clock, IsReplacedBySourcesOfATest) {
    zel::setTickSource([] { return 123456U; });
    zel::setWallTimeSource([] { return zel::WallTime{1917, 4, 21, 10, 35, 59}; });
    EXPECT_EQ(zel::ticks(), 123456U);
    EXPECT_EQ(zel::wallTime().year, 1917);
    EXPECT_EQ(zel::wallTime().second, 59);
    zel::setTickSource(nullptr);
    zel::setWallTimeSource(nullptr);
    EXPECT_GE(zel::wallTime().year, 2024);
    const uint32_t before = zel::ticks();
    zel::system::sleepMilliseconds(3);
    EXPECT_GE(zel::ticks() - before, 3U);
}

#ifndef _WIN32
TEST(UserDirectory, FollowsTheEnvironment) {
    zel::setApplicationTitle("Wingtally");
    setenv("HOME", "/home/her", 1);
    unsetenv("APPDATA");
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(zel::getUserDirectory(), "/home/her/.local/share\\Wingtally\\");
    setenv("XDG_DATA_HOME", "/xdg", 1);
    EXPECT_EQ(zel::getUserDirectory(), "/xdg\\Wingtally\\");
    setenv("APPDATA", "C:\\Her Data", 1);
    EXPECT_EQ(zel::getUserDirectory(), "C:\\Her Data\\Wingtally\\");
    zel::setUserDirectory("/chosen");
    EXPECT_EQ(zel::getUserDirectory(), "/chosen\\");
    zel::setUserDirectory("");
    EXPECT_EQ(zel::getUserDirectory(), "C:\\Her Data\\Wingtally\\");
    unsetenv("APPDATA");
    unsetenv("XDG_DATA_HOME");
}
#endif

#ifndef _WIN32
TEST(System, ListsTheCurrentDirectoryUnderNoName) {
    const TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    folder.write("folder/file", "");
    std::filesystem::create_directory_symlink("folder", folder.path() + "/link");
    std::filesystem::current_path(folder.path());
    std::vector<zel::system::DirectoryEntry> entries;
    EXPECT_TRUE(zel::system::listDirectory("", entries));
    std::filesystem::current_path(before);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_TRUE(entries[0].isDirectory && entries[1].isDirectory) << "a link counts as its end";
}
#endif

TEST(System, FindsTheRunDirectory) {
    const TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    folder.write("Data/Historical/Squadrons/101003.txt", "");
    EXPECT_TRUE(zel::system::changeDirectory(folder.path()));
    EXPECT_EQ(zel::findRunDirectory(), zel::system::currentDirectory()) << "the current one first";
    EXPECT_EQ(zel::system::absolutePath("Data\\Historical"), folder.path() + "/Data/Historical");
    std::filesystem::current_path(std::filesystem::path(folder.path()) / "Data");
    EXPECT_TRUE(zel::system::isDirectory(zel::findRunDirectory() + "\\Data\\Historical"))
        << "from elsewhere the one beside the program";
    std::filesystem::current_path(before);
}

} // namespace
