#include "engine/core/File.h"

#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

class File : public testing::Test {
protected:
    /// The lines of a file of that content, each with its number in front.
    Lines numbered(std::string_view content) const {
        zel::File file(folder.write("text", content), zel::FileRead);
        Lines lines;
        while (file.hasLine())
            lines.push_back(std::to_string(file.lineNumber()) + ":" + file.getLine().c_str());
        EXPECT_FALSE(file.hasFailed());
        EXPECT_FALSE(file.hasLine()) << "the end stays the end";
        return lines;
    }

    TemporaryFolder folder;
};

TEST_F(File, EndsLinesAtReturnsAndFeeds) {
    const Lines expected{"1:a", "2: b ", "3:c"};
    EXPECT_EQ(numbered("a\n b \nc\n"), expected);
    EXPECT_EQ(numbered("a\r\n b \r\nc\r\n"), expected);
    EXPECT_EQ(numbered("a\r b \rc"), expected) << "and the last line needs no end";
    EXPECT_EQ(numbered("\n\r\n\na\r\n\r\n\rb\n\n"), (Lines{"4:a", "7:b"})) << "none is empty";
    EXPECT_EQ(numbered(" \n\n \n"), (Lines{"1: ", "3: "})) << "blanks are text";
    EXPECT_EQ(numbered(""), Lines());
}

TEST_F(File, SkipsZeroBytesAndAMarkInFrontOfALine) {
    EXPECT_EQ(numbered("\r\n\n\r\0\n"s), Lines());
    EXPECT_EQ(numbered("\0\0a\n\0\n\0b\0\0"s), (Lines{"1:a", "3:b"}));
    zel::File file(folder.write("text", "a\0b\nc"s), zel::FileRead);
    ASSERT_TRUE(file.hasLine());
    EXPECT_EQ(file.lineView(), "a\0b"s) << "those within stay";
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_EQ(numbered(mark + "a\n" + mark), (Lines{"1:a", "2:" + mark})) << "at the start alone";
    EXPECT_EQ(numbered(mark), Lines());
    EXPECT_EQ(numbered(mark.substr(0, 2)), Lines{"1:" + mark.substr(0, 2)});
}

// It reads 64 KB at once. The first line ends there, a return apart from its feed; others are
// longer.
TEST_F(File, ReadsLinesOfAnyLengthAcrossItsBuffer) {
    constexpr size_t Buffer = 65536;
    for (const std::string end : {"\n", "\r\n"}) {
        std::string content;
        Lines expected;
        for (const size_t length : {Buffer - 1, size_t(5), 2 * Buffer + 1, size_t(7), Buffer}) {
            const std::string line(length, static_cast<char>('a' + expected.size()));
            content += line + end;
            expected.push_back(std::to_string(expected.size() + 1) + ":" + line);
        }
        EXPECT_TRUE(numbered(content) == expected) << end.size();
    }
}

TEST_F(File, LeavesTheBlockAloneWhenReadingPastTheEnd) {
    zel::File file(folder.write("four", "abcd"), zel::FileRead);
    char block[5] = "####";
    ASSERT_TRUE(file.read(block, 3));
    EXPECT_STREQ(block, "abc#");
    EXPECT_FALSE(file.hasFailed() || file.atEnd());
    EXPECT_FALSE(file.read(block, 2));
    EXPECT_STREQ(block, "abc#");
    EXPECT_TRUE(file.hasFailed());
    EXPECT_TRUE(file.read(block, 1)) << "what is left can still be had";
    EXPECT_TRUE(file.atEnd() && file.hasFailed()) << "and the failure stays";
    EXPECT_FALSE(file.read(block, -1));
}

TEST_F(File, WritesSeeksAndUpdates) {
    const std::string path = folder.file("blocks");
    {
        zel::File file(path, zel::FileWrite);
        EXPECT_TRUE(file.write("0123456789", 10) && file.seek(2, 0) && file.write("ab", 2));
        EXPECT_FALSE(file.atEnd());
        EXPECT_TRUE(file.seek(-1, 2) && file.write("z", 1) && file.atEnd());
    }
    EXPECT_EQ(folder.read("blocks"), "01ab45678z");
    {
        zel::File file(path, zel::FileUpdate);
        char two[2];
        EXPECT_TRUE(file.read(two, 2) && file.seek(1, 1) && file.write("X", 1));
    }
    EXPECT_EQ(folder.read("blocks"), "01aX45678z");
    EXPECT_TRUE(zel::File(path, zel::FileAppend).write("!", 1));
    EXPECT_EQ(folder.read("blocks"), "01aX45678z!");
}

TEST_F(File, OpensRegularFilesAlone) {
    Lines others{folder.path(), folder.path() + "/none", folder.path() + "/none/none"};
#ifndef _WIN32
    others.push_back(folder.file("pipe"));
    ASSERT_EQ(mkfifo(others.back().c_str(), 0600), 0);
#endif
    for (const std::string& path : others) {
        zel::File file(path, zel::FileRead);
        char byte = '#';
        EXPECT_TRUE(file.hasFailed()) << path;
        EXPECT_FALSE(file.isOpen() || file.hasLine() || file.read(&byte, 1) || file.write("a", 1));
        EXPECT_EQ(byte, '#');
        EXPECT_FALSE(zel::File::exists(path)) << path;
    }
    EXPECT_TRUE(zel::File(folder.path(), zel::FileWrite).hasFailed());
    EXPECT_TRUE(zel::File::exists(folder.write("there", "")));
    const LogCapture log;
    EXPECT_TRUE(zel::File("", zel::FileRead).hasFailed());
    EXPECT_TRUE(log.holds(" [File] Tried to open file without filename\n"));
}

#ifndef _WIN32
TEST_F(File, FindsNamesAsWindowsDoes) {
    folder.write("Data/Missions/One.txt", "one");
    const zel::String root(folder.path());
    EXPECT_TRUE(zel::File::exists(root + "\\data\\MISSIONS\\one.TXT"));
    EXPECT_FALSE(zel::File::exists(root + "\\data\\MISSIONS\\two.txt"));

    folder.write("Data/Missions/ONE.txt", "exactly");
    zel::File file(root + "\\data\\missions\\ONE.txt", zel::FileRead);
    ASSERT_TRUE(file.hasLine());
    EXPECT_EQ(file.lineView(), "exactly") << "before the one that differs in case";

    zel::File created(root + "\\DATA\\missions\\New.txt", zel::FileWrite);
    created.write("new", 3);
    created.close();
    EXPECT_EQ(folder.read("Data/Missions/New.txt"), "new") << "no second folder beside the first";
}
#endif

} // namespace
