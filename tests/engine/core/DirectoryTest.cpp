#include "engine/core/Directory.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// The names of a folder, each followed by a blank, those of sub-folders by "/ ".
std::string listing(const std::string& path, const char* pattern) {
    const zel::Directory directory(path, pattern);
    std::string names;
    for (int32_t i = 0; i < directory.count(); ++i)
        names += std::string(directory.name(i)) + (directory.isDirectory(i) ? "/ " : " ");
    return names;
}

// clang-format off
TEST(Directory, FitsNamesToPatterns) {
    for (const auto& [name, pattern] : {
             std::pair{"a.txt", "*.*"}, {"a", "*.*"}, {"a.txt", "*.TXT"}, {"A.txt", "a.txt"},
             {"a.txt", "?.t?t"}, {"m(1)[0].txt", "*[0]*.txt"}, {"[0].txt", "*[0]*.txt"},
             {"aab.txt", "*ab*.txt"}, {"", "*"}, {"abcabd", "*abd"}, {"ab", "a**b"}})
        EXPECT_TRUE(zel::fitsPattern(name, pattern)) << name << " " << pattern;
    for (const auto& [name, pattern] : {
             std::pair{"a.txt", "*.cfg"}, {"a.txtx", "*.txt"}, {"", "?"}, {"m0.txt", "*[0]*.txt"},
             {"m[1].txt", "*[0]*.txt"}, {"ab", "a"}, {"a", "ab"}, {"a", "a?"}, {"\xE4", "\xC4"}})
        EXPECT_FALSE(zel::fitsPattern(name, pattern)) << name << " " << pattern;
}
// clang-format on

TEST(Directory, TakesTheSeparatorOffAFolder) {
    const std::pair<const char*, const char*> cases[] = {
        {"/", "/"},          {"C:\\", "C:\\"}, {"C:\\a\\/", "C:\\a"},
        {"/x/d:/", "/x/d:"}, {"", ""},         {"\\\\s\\share\\", "\\\\s\\share"},
    };
    for (const auto& [folder, bare] : cases)
        EXPECT_EQ(zel::withoutSeparator(folder), bare) << folder;
}

TEST(Directory, ListsInTheOrderOfLoweredBytes) {
    const TemporaryFolder folder;
    folder.write("b", "");
    const bool isCaseKept = !std::filesystem::exists(folder.path() + "/B");
    for (const char* name : {"B", "a_", "A", "a1", "\xE4", "Z", "[0].txt", ".hidden", "sub/x"})
        folder.write(name, "");
    EXPECT_EQ(listing(folder.path(), "*.*"),
              std::string("[0].txt A a1 a_ ") + (isCaseKept ? "B b" : "b") + " sub/ Z \xE4 ");
    EXPECT_EQ(listing(folder.path() + "\\", "*.txt"), "[0].txt ");
    EXPECT_EQ(listing(folder.path(), "SUB"), "sub/ ");
    EXPECT_EQ(listing(folder.path(), ".*"), "");
    EXPECT_TRUE(zel::Directory(folder.path(), "*").holds("a1"));
    EXPECT_FALSE(zel::Directory(folder.path(), "*").holds("A1"));
}

TEST(Directory, ReportsAFolderThatIsNotThere) {
    const TemporaryFolder folder;
    folder.write("a", "");
    zel::Directory directory(folder.path(), "*");
    EXPECT_EQ(directory.count(), 1);
    const LogCapture log;
    directory.list("no/such folder", "*");
    EXPECT_EQ(directory.count(), 0) << "it lists again";
    EXPECT_TRUE(log.holds(" [Directory] Path not found: no/such folder\n"));
}

TEST(Directory, MakesFoldersWithTheirParents) {
    const TemporaryFolder folder;
    const zel::String path = zel::String(folder.path()) + "\\a\\b/c\\";
    EXPECT_TRUE(zel::Directory::create(path));
    EXPECT_TRUE(zel::Directory::create(path)) << "an existing one isn't an error";
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() + "/a/b/c"));
    folder.write("file", "");
    EXPECT_FALSE(zel::Directory::create(folder.path() + "/file"));
    EXPECT_FALSE(zel::Directory::create(folder.path() + "/file/below"));
}

} // namespace
