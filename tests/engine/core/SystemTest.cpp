#include "engine/core/System.h"

#include <filesystem>
#include <tuple>
#ifdef _WIN32
#include <windows.h>
#endif

#include <gtest/gtest.h>

#include "engine/core/Directory.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

TEST(UserDirectory, FollowsTheEnvironment) {
    using zel::system::setEnvironment;
    const zel::String before = zel::system::environment("APPDATA");
    zel::setApplicationTitle("Wingtally");
#ifndef _WIN32
    setEnvironment("HOME", "/home/her");
    setEnvironment("APPDATA", "");
    setEnvironment("XDG_DATA_HOME", "");
    EXPECT_EQ(zel::getUserDirectory(), "/home/her/.local/share\\Wingtally\\");
    setEnvironment("XDG_DATA_HOME", "/xdg");
    EXPECT_EQ(zel::getUserDirectory(), "/xdg\\Wingtally\\");
    for (const auto& [data, home, hasProblem] : {std::tuple{"/xdg", "", false},
                                                 {"xdg", "/home/her", true},
                                                 {"", "/home/her", false},
                                                 {"", "", true},
                                                 {"", "home", true}}) {
        setEnvironment("XDG_DATA_HOME", data);
        setEnvironment("HOME", home);
        EXPECT_EQ(!zel::system::applicationDataProblem().empty(), hasProblem) << data << home;
    }
    setEnvironment("XDG_DATA_HOME", "");
#endif
    setEnvironment("APPDATA", "C:\\Her Data");
    EXPECT_EQ(zel::getUserDirectory(), "C:\\Her Data\\Wingtally\\");
    zel::setUserDirectory("/chosen");
    EXPECT_EQ(zel::getUserDirectory(), "/chosen\\");
    zel::setUserDirectory("");
    EXPECT_EQ(zel::getUserDirectory(), "C:\\Her Data\\Wingtally\\");
    setEnvironment("APPDATA", before);
}

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

TEST(System, ShowsNamesOfFilesAsTextsAreDrawn) {
#ifdef _WIN32
    EXPECT_EQ(zel::system::shownText("C:\\Jos\xE9"), "C:\\Jos\xE9");
#else
    EXPECT_EQ(zel::system::shownText("/home/Jos\u00E9/\u20AC/\u0142"), "/home/Jos\xE9/\x80/\x04");
    EXPECT_EQ(zel::system::shownText("\u4E2D\u6587/\xE9t\xC3"), "?\?/?t?") << "lacking, stray, cut";
#endif
    EXPECT_EQ(zel::system::shownText(""), "");
}

TEST(System, FindsTheRunDirectory) {
    const TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    folder.write("Data/Historical/Squadrons/101003.txt", "");
    EXPECT_TRUE(zel::system::changeDirectory(folder.path()));
    EXPECT_EQ(zel::findRunDirectory(), zel::system::currentDirectory()) << "the current one first";
    const zel::String absolute = zel::system::absolutePath("Data\\Historical");
    EXPECT_TRUE(std::filesystem::equivalent(absolute.c_str(), folder.path() + "/Data/Historical"));
    EXPECT_EQ(absolute.view().find(folder.path()), 0U) << absolute.c_str();
    std::filesystem::current_path(std::filesystem::path(folder.path()) / "Data");
    EXPECT_TRUE(zel::system::isDirectory(zel::findRunDirectory() + "\\Data\\Historical"))
        << "from elsewhere the one beside the program";
    std::filesystem::current_path(before);
}

#ifdef _WIN32
constexpr const char* TestKey = "SOFTWARE\\Wow6432Node\\Wingtally test";

/// A key as a 32-bit program writes it, gone again at the end.
class RegistryKey {
public:
    RegistryKey() {
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Wingtally test", 0, nullptr, 0,
                        KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key, nullptr);
    }
    ~RegistryKey() {
        RegCloseKey(key);
        RegDeleteKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Wingtally test", KEY_WOW64_32KEY, 0);
    }
    void set(const char* name, const std::string& value, DWORD type = REG_SZ) const {
        RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size() + (type == REG_SZ ? 1 : 0)));
    }

private:
    HKEY key = nullptr;
};

TEST(System, ReadsTextsOfTheRegistry) {
    using zel::system::queryRegistryValue;
    const RegistryKey key;
    key.set("Place", "C:\\Games\\R\xF6"
                     "F\\");
    EXPECT_EQ(queryRegistryValue(TestKey, "Place"), "C:\\Games\\R\xF6"
                                                    "F\\");
    key.set("Longest", std::string(1022, 'x'));
    EXPECT_EQ(queryRegistryValue(TestKey, "Longest").view().size(), 1022U);
    key.set("Too long", std::string(1023, 'x'));
    EXPECT_EQ(queryRegistryValue(TestKey, "Too long"), "");
    key.set("Number", "1234", REG_DWORD);
    EXPECT_EQ(queryRegistryValue(TestKey, "Number"), "");
    EXPECT_EQ(queryRegistryValue(TestKey, "Nothing"), "");
    EXPECT_EQ(queryRegistryValue("SOFTWARE\\No such key", "Place"), "");
}

TEST(System, ListsFoldersByLongNames) {
    const TemporaryFolder folder;
    folder.write("missionReport(2009-05-07_12-00-00)[0].txt", "");
    folder.write("a.textfile", ""); // its short name ends in .TEX, and *.tex finds it
    for (const char* ending : {"", "\\", "/"}) {
        zel::Directory found(folder.path() + ending, "*[0].txt");
        ASSERT_EQ(found.count(), 1) << ending;
        EXPECT_EQ(found.name(0), "missionReport(2009-05-07_12-00-00)[0].txt");
        EXPECT_EQ(zel::Directory(folder.path() + ending, "*.tex").count(), 0);
    }
    std::vector<zel::system::DirectoryEntry> entries;
    EXPECT_FALSE(zel::system::listDirectory(folder.path() + "\\none", entries));
}
#endif

} // namespace
