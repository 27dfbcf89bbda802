// Compares docs/menu-scripts.md with the interpreter: its examples run, and they cover every
// command.
#include <fstream>
#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "engine/menu/script/LayoutCommands.h"
#include "engine/menu/script/MenuCommands.h"
#include "engine/menu/script/ThemeCommands.h"
#include "tests/engine/menu/ScreenDriver.h"

using namespace zel;

// Examples are in indented blocks, and after the first cell of a table's row.
TEST(MenuScriptsDocument, ShowsEveryCommandAsItRuns) {
    std::ifstream document(DOCS_FOLDER "/menu-scripts.md");
    ASSERT_TRUE(document);
    ScreenDriver driver({{"A", "init:\n"}});
    ASSERT_TRUE(driver.untilIdle("A"));
    const std::regex example("^    (.+)|`([^`]+)`");
    std::set<std::string> shown;
    for (std::string line; std::getline(document, line);) {
        line.erase(0, line.rfind("| `", 0) == 0 ? line.find(" | ") : 0);
        for (std::sregex_iterator at(line.begin(), line.end(), example), end; at != end; ++at) {
            const std::string statement = at->str(1) + at->str(2);
            const std::vector<String> words = splitWords(statement);
            const String command = words.empty() ? "" : words[0].toLower();
            if (line[0] != ' ' || findCommand(command) == nullptr) // prose, or another language
                continue;
            shown.insert(command.c_str());
            driver.menu().getScript().executeLine(statement, &driver.menu());
        }
    }
    for (const ScriptFault& fault : driver.faults)
        ADD_FAILURE() << fault.text.view();
    for (const ScriptCommands& table : {menuCommands(), layoutCommands(), themeCommands()})
        for (size_t i = 0; i < table.count; ++i)
            EXPECT_EQ(shown.count(table.first[i].name), 1U) << table.first[i].name;
}
