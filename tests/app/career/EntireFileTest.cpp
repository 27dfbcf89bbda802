#include "app/career/EntireFile.h"

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using List = std::vector<zel::String>;

TEST(EntireFile, HoldsTheLinesOfAFile) {
    const TemporaryFolder folder;
    const zel::String path(folder.write("names", " one \r\n\r\n\ntwo\rthree"));
    EntireFile file(path);
    EXPECT_EQ(file.lines, (List{" one ", "two", "three"}));
    EXPECT_EQ(file.fileName, path);
    EXPECT_TRUE(file.appendFile(path));
    EXPECT_EQ(file.lineCount(), 6);
    EXPECT_TRUE(file.loadFile(path));
    EXPECT_EQ(file.lineCount(), 3);
    EXPECT_EQ(file.line(1), "two");
    EXPECT_TRUE(file.loadFile(folder.write("empty", "\r\n\n")));
    EXPECT_EQ(file.lineCount(), 0);
}

TEST(EntireFile, KeepsItsLinesWhenNothingCanBeAdded) {
    const TemporaryFolder folder;
    const LogCapture log(4);
    EntireFile file(folder.write("names", "one"));
    EXPECT_FALSE(file.appendFile(folder.path() + "/none"));
    EXPECT_FALSE(file.appendFile(folder.path())) << "a folder";
    EXPECT_EQ(file.lines, List{"one"});
    EXPECT_FALSE(file.loadFile("none"));
    EXPECT_EQ(file.lines, List());
    EXPECT_EQ(file.fileName, "none");
    EXPECT_TRUE(log.holds(" [EntireFile] loadFile none\n"));
    EXPECT_TRUE(log.holds(" [EntireFile] appendFile none\n"));
}

} // namespace
