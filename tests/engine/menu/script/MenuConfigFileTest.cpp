#include "engine/menu/script/MenuConfigFile.h"

#include <gtest/gtest.h>

#include "engine/menu/widgets/Widget.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

std::vector<std::string> reports(const ScreenDriver& driver) {
    std::vector<std::string> texts;
    for (const ScriptFault& fault : driver.faults)
        texts.emplace_back(fault.text.view());
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

// The cases of tests/tools/menucheck have more faults.
TEST(MenuConfigFile, ReportsWithTheLineOfTheFile) {
    ScreenDriver driver({{"A", "init:\n\n# a comment\nsetlocalflag x on\n  nosuch 1 2\n"
                               "addwidget a b c d\nlayout.definelayout\n\"\"\n"}});
    EXPECT_EQ(reports(driver),
              (Texts{"Syntax Error: 5 nosuch 1 2",
                     "Illegal Number of Arguments (has 4 and expected between 1 and 3): 6 "
                     "addwidget a b c d",
                     "Syntax Error: 6 addwidget a b c d",
                     "Illegal Number of Arguments (has 0 and expected between 1 and 1): 7 "
                     "layout.definelayout",
                     "Syntax Error: 7 layout.definelayout", "Syntax Error: 8 \"\""}));
    EXPECT_EQ(driver.faults[0].file, "Menus/A.ini");
    HandledMenu& menu = *HandledMenu::getMenus()[0];
    EXPECT_TRUE(menu.getLocalFlag("X")) << "the good line ran";
    menu.getScript().executeLine("nonsense 1", &menu);
    EXPECT_EQ(driver.faults.back().text, "Syntax Error: nonsense 1") << "a line of no section";
    EXPECT_EQ(driver.faults.back().line, "");
}

TEST(MenuConfigFile, PassesOverWhatMeansNothing) {
    ScreenDriver driver({{"A", "setlocalflag early on\ninit:\n.disabledcommand 1 2\n"
                               "setlocalflag foo maybe\nsetlocalflag foo 0\n"
                               "@(tablet) setlocalstring s a\n@phone setlocalstring s b\n"}});
    EXPECT_EQ(reports(driver), Texts{});
    const HandledMenu& menu = *HandledMenu::getMenus()[0];
    EXPECT_FALSE(menu.getLocalFlag("early")) << "lines before a header never run";
    EXPECT_FALSE(menu.getLocalFlag("foo"));
    EXPECT_EQ(menu.getLocalString("s"), "a");
}

TEST(MenuConfigFile, RunsTheLastSectionOfAName) {
    ScreenDriver driver({{"A", "Init:\nsetlocalstring a first\nsetlocalstring b first\n"
                               "iNIT:\nsetlocalstring a second\n"}});
    const HandledMenu& menu = *HandledMenu::getMenus()[0];
    EXPECT_EQ(menu.getLocalString("a"), "second");
    EXPECT_EQ(menu.getLocalString("b"), "") << "sections are not joined";
}

TEST(MenuConfigFile, AnswersFalseForOneLine) {
    ScreenDriver driver({{"A", "one:\nsetlocalflag one on\ntwo:\nsetlocalflag two on\n"
                               "setlocalflag three on\nnone:\n"}});
    HandledMenu& menu = *HandledMenu::getMenus()[0];
    EXPECT_FALSE(menu.getScript().executeSection("ONE", &menu));
    EXPECT_TRUE(menu.getLocalFlag("one")) << "it ran";
    EXPECT_TRUE(menu.getScript().executeSection("two", &menu));
    EXPECT_FALSE(menu.getScript().executeSection("none", &menu));
    EXPECT_FALSE(menu.getScript().executeSection("missing", &menu));
    menu.getScript().executeSection("two", nullptr);
}

TEST(MenuConfigFile, JoinsIncludedFiles) {
    const TemporaryFolder folder;
    const std::string block = folder.write("block.inc", "setlocalstring a block\n");
    const std::string sections =
        folder.write("sections.inc", "setlocalstring b head\nother:\nsetlocalstring c other\n");
    const std::string script =
        "init:\ninclude " + block + "\ninclude " + sections + "\nsetlocalstring d behind\n";
    ScreenDriver driver({{"A", script}});
    HandledMenu& menu = *HandledMenu::getMenus()[0];
    EXPECT_EQ(menu.getLocalString("a"), "block");
    EXPECT_EQ(menu.getLocalString("b"), "head");
    EXPECT_EQ(menu.getLocalString("d"), "") << "it fell into the included file's last section";
    EXPECT_TRUE(menu.getScript().executeSection("other", &menu));
    EXPECT_EQ(menu.getLocalString("d"), "behind");
}

TEST(MenuConfigFile, RefusesIncludesThatAreNestedTooDeep) {
    const TemporaryFolder folder;
    for (int32_t depth = 0; depth < 70; ++depth)
        folder.write("f" + std::to_string(depth),
                     "# next\ninclude " + folder.file("f" + std::to_string(depth + 1)) + "\n");
    const LogCapture log;
    MenuConfigFile script;
    ASSERT_TRUE(script.load(folder.file("f0")));
    EXPECT_TRUE(log.holds("f63:2: include of " + folder.file("f64") +
                          " failed: includes are nested too deep"))
        << log.text();
    EXPECT_EQ(log.linesWith("include of"), 1);
}

TEST(MenuConfigFile, TellsOfLinesBeyondTheMost) {
    ScreenDriver driver({{"A", "init:\n"}});
    std::string text = "init:\n";
    for (int32_t i = 0; i < 100002; ++i)
        text += ".\n";
    MenuConfigFile file;
    file.loadText(text, "long");
    EXPECT_EQ(file.getLines().size(), 100000U);
    EXPECT_EQ(driver.log.linesWith("long has more than 100000 lines; the rest is dropped"), 1);
}

TEST(MenuConfigFile, KeepsVariablesInThePreferences) {
    ScreenDriver driver({{"A", "init:\nsetlocalflag F on\nsetglobalstring S \"two words\"\n"
                               "setglobalflag g yes\nsetlocalstring l here\n"
                               "store:\nstorelocalflag f\nstoreglobalstring S\n"
                               "storeglobalflag G\nstorelocalstring L\n"
                               "change:\nsetlocalflag f off\nsetglobalflag g off\n"
                               "setglobalstring s changed\nsetlocalstring l gone\n"
                               "restore:\nrestorelocalflag F\nrestoreglobalflag g\n"
                               "restoreglobalstring s\nrestorelocalstring l\n"
                               "setlocalflag never on\nrestorelocalflag never\n"}});
    HandledMenu& menu = *HandledMenu::getMenus()[0];
    menu.getScript().executeSection("store", &menu);
    menu.getScript().executeSection("change", &menu);
    EXPECT_FALSE(menu.getLocalFlag("f"));
    menu.getScript().executeSection("restore", &menu);
    EXPECT_TRUE(menu.getLocalFlag("f"));
    EXPECT_TRUE(menu.getGlobalFlag("g"));
    EXPECT_EQ(menu.getGlobalString("s"), "two words");
    EXPECT_EQ(menu.getLocalString("l"), "here");
    EXPECT_TRUE(menu.getLocalFlag("never")) << "an absent key changes nothing";
    for (const char* line :
         {"d  ", "[MenuConfigFile] setLocalFlag f to true", "setGlobalString s to two words"})
        EXPECT_TRUE(driver.log.holds(line)) << line;
}
