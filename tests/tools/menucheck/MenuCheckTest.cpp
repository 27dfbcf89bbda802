#include "tools/menucheck/MenuCheck.h"

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/core/TextEncoding.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Texts.h"

namespace {

using Lines = std::vector<std::string>;

/// The faults of the program in that folder, a line each.
Lines faultsOf(const std::string& folder) {
    const zel::String before = zel::system::currentDirectory();
    Lines lines;
    for (const tools::Finding& finding : menucheck::checkMenus(folder))
        lines.push_back(zel::utf8Of(finding.text()));
    zel::system::changeDirectory(before);
    return lines;
}

/// A bitmap file of one blue pixel.
std::string dot() {
    std::string bytes("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30);
    return bytes + std::string(24, '\0') + std::string("\xff\0\0\0", 4);
}

struct Case {
    std::string what;
    std::string body; // of the script
    std::map<std::string, std::string> files;
    Lines faults;
};

/// The cases of cases.txt, which says how they are written.
std::vector<Case> readCases() {
    std::istringstream text(fileText(CASES_FOLDER "/cases.txt"));
    std::vector<Case> cases;
    std::string* content = nullptr;
    for (std::string line; std::getline(text, line);) {
        if (line.rfind("--- ", 0) == 0)
            content = &cases.emplace_back(Case{line.substr(4), "", {}, {}}).body;
        else if (line.rfind("@@ ", 0) == 0)
            content = &cases.back().files[line.substr(3)];
        else if (line == "=>")
            content = nullptr;
        else if (content != nullptr)
            *content += line + "\n";
        else if (!line.empty() && !cases.empty())
            cases.back().faults.push_back(line);
    }
    return cases;
}

void writeProgram(const TemporaryFolder& folder, const Case& program) {
    folder.write("dot.bmp", dot());
    for (const char* name : {"Fonts/type17.fnt", "Fonts/type17.png"})
        std::filesystem::copy_file(std::string(SAMPLE_FOLDER "/") + name, folder.file(name));
    std::filesystem::copy_file(CASES_FOLDER "/base.inc", folder.file("Menus/base.inc"));
    folder.write("Menus/init.lst", "A\n");
    folder.write("Menus/A.ini", "include Menus/base.inc\n" + program.body);
    for (const auto& [name, content] : program.files)
        folder.write(name, std::filesystem::path(name).extension() == ".bmp" ? dot() : content);
}

} // namespace

TEST(MenuCheck, FindsNothingInTheSampleProgram) { EXPECT_EQ(faultsOf(SAMPLE_FOLDER), Lines{}); }

TEST(MenuCheck, ReadsTheListOfScreens) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultsOf(folder.path()), Lines{"Menus/init.lst: no such file"});
    folder.write("Menus/init.lst", "A\n\nB\nA\nC\n");
    folder.write("Menus/A.ini", "onenter:\nsetautotransition 1 quitApp\nsettransition C\n");
    folder.write("Menus/B.ini", "onenter:\nsettransition A\nsettransition <quitApp\n");
    folder.write("Menus/Lost.ini", "");
    EXPECT_EQ(
        faultsOf(folder.path()),
        (Lines{"Menus/Lost.ini: no line of Menus/init.lst names it",
               "Menus/init.lst: Menu script Menus/C.ini not found",
               "Menus/init.lst:3: B can't be reached", "Menus/init.lst:4: A is named twice",
               "Menus/init.lst:5: C has no way out", "Menus/init.lst:5: no script Menus/C.ini"}));
}

TEST(MenuCheck, FindsWhatIsWrong) {
    std::vector<Case> cases = readCases();
    EXPECT_EQ(cases.size(), 44U);
    // No editor writes this byte, which means nothing in Windows-1252.
    cases.push_back({"a character that the font lacks",
                     "onenter:\naddwidget back\naddwidget label \"\x81\"\n",
                     {},
                     {"Menus/A.ini:4: label: the font Fonts/type17 has no character 129 of ?"}});
    for (const Case& one : cases) {
        const TemporaryFolder folder;
        writeProgram(folder, one);
        EXPECT_EQ(faultsOf(folder.path()), one.faults) << one.what;
    }
}
