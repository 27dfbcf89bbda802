#include "tools/menucheck/MenuCheck.h"

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// The faults of a program of these files, a line each.
std::vector<std::string> faultsOf(const std::string& folder) {
    const zel::String before = zel::system::currentDirectory();
    std::vector<std::string> lines;
    for (const menucheck::Fault& fault : menucheck::checkMenus(folder))
        lines.push_back(std::string(fault.file.view()) + ":" + std::to_string(fault.line) + ": " +
                        std::string(fault.what.view()));
    zel::system::changeDirectory(before);
    return lines;
}

using Lines = std::vector<std::string>;

// A layout of elements without images: the bare faults of a line can then be told apart.
constexpr const char* Elements = R"(init:
layout.definelayout l
layout.definewidget a plate
layout.definewidgetsize 100 40
layout.definewidgetimage dot.png all
layout.definewidget b button
layout.definewidgetposition 60 0
layout.definewidgetsize 100 40
layout.definewidgetimage dot.png all
layout.definewidget far button
layout.definewidgetposition 1000 0
layout.definewidgetsize 100 40
layout.definewidgetimage dot.png all
setlayout l
)";

/// A bitmap file of one blue pixel.
std::string dot() {
    std::string bytes("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30);
    return bytes + std::string(24, '\0') + std::string("\xff\0\0\0", 4);
}

} // namespace

TEST(MenuCheck, FindsNothingInTheSampleProgram) { EXPECT_EQ(faultsOf(SAMPLE_FOLDER), Lines{}); }

TEST(MenuCheck, ReadsTheListOfScreens) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultsOf(folder.path()), Lines{"Menus/init.lst:0: no such file"});
    folder.write("Menus/init.lst", "A\n\nB\nA\nC\n");
    folder.write("Menus/A.ini", "onenter:\nsetautotransition 1 A\nsettransition C\n");
    folder.write("Menus/B.ini", "onenter:\nsettransition A\nsettransition <quitApp\n");
    folder.write("Menus/Lost.ini", "");
    EXPECT_EQ(
        faultsOf(folder.path()),
        (Lines{"Menus/Lost.ini:0: no line of Menus/init.lst names it",
               "Menus/init.lst:0: Menu script Menus/C.ini not found",
               "Menus/init.lst:3: B can't be reached", "Menus/init.lst:4: A is named twice",
               "Menus/init.lst:5: C has no way out", "Menus/init.lst:5: no script Menus/C.ini"}));
}

TEST(MenuCheck, NamesFileAndLineOfFaults) {
    const TemporaryFolder folder;
    folder.write("Menus/init.lst", "A\n");
    folder.write("dot.png", dot());
    folder.write("Menus/block.inc", "# shared\nnonsense\n");
    folder.write("Menus/A.ini",
                 std::string("setlocalflag x on\n#check code b gone\n#check hope\n") + Elements +
                     "include Menus/block.inc\n\n"
                     "onenter:\naddwidget a \"text\" Nowhere\naddwidget b \" \" A\n"
                     "addwidget far\naddwidget none\nsettheme missing\n"
                     "bitmap.preload gone.png\n"
                     "reset:\nsetlocalflag y on\n"
                     "onhit c:\nsetlocalflag z on\n"
                     "onentr:\nsetlocalflag z on\n@tablet addwidget \"a b\"\n"
                     "onentr:\n");
    const Lines lines = faultsOf(folder.path());
    const auto holds = [&](const char* line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    };
    for (const char* line :
         {"Menus/A.ini:1: a line before the first section never runs",
          "Menus/A.ini:2: the screen has no widget gone",
          "Menus/A.ini:3: unknown note hope: code, leads or overlap",
          "Menus/block.inc:2: Syntax Error: 2 nonsense", "Menus/A.ini:21: a overlaps b",
          "Menus/A.ini:21: a has a text and no font", "Menus/A.ini:21: no such state: Nowhere",
          "Menus/A.ini:22: b is answered by code and must have no target",
          "Menus/A.ini:23: far is a button that does nothing",
          "Menus/A.ini:23: far reaches out of the screen",
          "Menus/A.ini:24: Widget none does not exist in layout l",
          "Menus/A.ini:25: Theme identifier unknown",
          "Menus/A.ini:26: gone.png is in the queue but does not exist",
          "Menus/A.ini:27: section reset has one line: it would run at its first event only",
          "Menus/A.ini:29: the layout has no widget c",
          "Menus/A.ini:31: section onentr belongs to no event",
          "Menus/A.ini:33: falls apart behind a condition: a b",
          "Menus/A.ini:34: a second section onentr in one file: the first never runs"})
        EXPECT_TRUE(holds(line)) << line;
    if (HasFailure())
        for (const std::string& line : lines)
            ADD_FAILURE() << line;
}
