// docs/menu-scripts.md against the interpreter: what it shows runs, and it shows every command.
#include <fstream>
#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "engine/menu/script/LayoutCommands.h"
#include "engine/menu/script/MenuCommands.h"
#include "engine/menu/script/ThemeCommands.h"
#include "tests/engine/menu/ScreenDriver.h"

using namespace zel;

namespace {

using Lines = std::vector<std::string>;

/// The examples of a table row: the text in backticks in its second cell.
Lines examplesOf(const std::string& row) {
    static const std::regex quoted("`([^`]*)`");
    const size_t begin = row.find(" | ");
    const std::string cell = row.substr(begin, row.find(" |", begin + 1) - begin);
    Lines examples;
    for (std::sregex_iterator at(cell.begin(), cell.end(), quoted), end; at != end; ++at)
        examples.push_back((*at)[1]);
    return examples;
}

std::string commandOf(const std::string& line) {
    const std::vector<String> words = splitWords(line);
    return words.empty() ? "" : words[0].toLower().c_str();
}

/// The lines that belong to scripts. The document also has other languages: an indented block
/// counts if any of its lines is a command.
Lines scriptLines(std::istream& document) {
    Lines lines, block;
    bool isScript = false, isExampleTable = false;
    for (std::string line; std::getline(document, line);) {
        if (line.rfind("    ", 0) == 0) {
            block.push_back(line.substr(4));
            isScript = isScript || findCommand(commandOf(line)) != nullptr;
        } else if (!line.empty()) {
            if (isScript)
                lines.insert(lines.end(), block.begin(), block.end());
            block.clear();
            isScript = false;
        }
        isExampleTable = line.rfind("| Command | Example |", 0) == 0 ||
                         (isExampleTable && line.rfind('|', 0) == 0);
        if (isExampleTable && line.rfind("| `", 0) == 0) {
            const Lines examples = examplesOf(line);
            lines.insert(lines.end(), examples.begin(), examples.end());
        }
    }
    return lines;
}

} // namespace

TEST(MenuScriptsDocument, ShowsEveryCommandAsItRuns) {
    std::ifstream document(DOCS_FOLDER "/menu-scripts.md");
    ASSERT_TRUE(document);
    ScreenDriver driver({{"A", "init:\n"}});
    ASSERT_TRUE(driver.untilIdle("A"));
    HandledMenu& menu = driver.menu();
    std::set<std::string> shown;
    for (const std::string& line : scriptLines(document)) {
        const std::string command = commandOf(line);
        const bool isHeader = !line.empty() && line.back() == ':';
        if (isHeader || command.empty() || command[0] == '#')
            continue;
        shown.insert(command);
        driver.faults.clear();
        menu.getScript().executeLine(line, &menu);
        for (const ScriptFault& fault : driver.faults)
            ADD_FAILURE() << fault.text.view();
    }
    for (const ScriptCommands& table : {menuCommands(), layoutCommands(), themeCommands()}) {
        for (size_t i = 0; i < table.count; ++i)
            EXPECT_EQ(shown.count(table.first[i].name), 1U) << table.first[i].name;
    }
}
