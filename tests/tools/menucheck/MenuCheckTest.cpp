#include "tools/menucheck/MenuCheck.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Lines = std::vector<std::string>;

/// The faults of the program in that folder, a line each.
Lines faultsOf(const std::string& folder) {
    const zel::String before = zel::system::currentDirectory();
    Lines lines;
    for (const tools::Finding& finding : menucheck::checkMenus(folder))
        lines.push_back(finding.text());
    zel::system::changeDirectory(before);
    return lines;
}

/// A bitmap file of one blue pixel.
std::string dot() {
    std::string bytes("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30);
    return bytes + std::string(24, '\0') + std::string("\xff\0\0\0", 4);
}

/// Writes a program of one screen, A. Its script is the body, from line 2 on; what is there
/// before the first section joins the "init" of base.inc: elements, and images that are none in the
/// eyes of a check.
void writeProgram(const TemporaryFolder& folder, const std::string& body) {
    folder.write("dot.bmp", dot());
    for (const char* name : {"Fonts/type17.fnt", "Fonts/type17.png"})
        std::filesystem::copy_file(std::string(SAMPLE_FOLDER "/") + name, folder.file(name));
    folder.write("Menus/init.lst", "A\n");
    std::filesystem::copy_file(BASE_SCRIPT, folder.file("Menus/base.inc"));
    folder.write("Menus/A.ini", "include Menus/base.inc\n" + body);
}

struct Case {
    std::string body;
    Lines faults;
};

void expectFaults(const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        const TemporaryFolder folder;
        writeProgram(folder, one.body);
        EXPECT_EQ(faultsOf(folder.path()), one.faults) << one.body;
    }
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

TEST(MenuCheck, NamesFileAndLineOfFaults) {
    const TemporaryFolder folder;
    writeProgram(folder, "include Menus/block.inc\n"
                         "onenter:\naddwidget back\naddwidget none\nsettheme missing\n"
                         "bitmap.preload gone.png\n"
                         "reset:\nsetlocalflag y on\n"
                         "onhit c:\nsetlocalflag z on\n"
                         "onentr:\n@tablet addwidget \"a b\"\n"
                         "onentr:\nsetlocalflag\tz on\n");
    folder.write("Menus/block.inc", "# shared\nnonsense\n");
    EXPECT_EQ(faultsOf(folder.path()),
              (Lines{
                  "Menus/A.ini:5: Failed to create Widget none",
                  "Menus/A.ini:5: Widget none does not exist in layout l",
                  "Menus/A.ini:6: Theme identifier unknown",
                  "Menus/A.ini:7: gone.png is in the queue but does not exist",
                  "Menus/A.ini:8: section reset has one line: it would run at its first event only",
                  "Menus/A.ini:10: the layout has no widget c",
                  "Menus/A.ini:10: the screen never has a widget c",
                  "Menus/A.ini:12: section onentr belongs to no event",
                  "Menus/A.ini:13: a line for some displays only (#check conditions allows them)",
                  "Menus/A.ini:13: falls apart after a condition: a b",
                  "Menus/A.ini:14: a second section onentr in one file: the first never runs",
                  "Menus/A.ini:14: section onentr belongs to no event",
                  "Menus/A.ini:15: a tab, which is no blank here",
                  "Menus/block.inc:2: Syntax Error: 2 nonsense",
              }));
    folder.write("Menus/A.ini", "setlocalflag x on\n@tablet setlocalflag y on\n"
                                "#check conditions\n#check leads quitApp\nonenter:\n");
    EXPECT_EQ(faultsOf(folder.path()),
              (Lines{"Menus/A.ini:1: a line before the first section never runs",
                     "Menus/A.ini:2: a line before the first section never runs"}));
}

TEST(MenuCheck, NamesTheLineOfWhateverFileIsRead) {
    const TemporaryFolder folder;
    writeProgram(folder, "include Menus/block.inc\ninclude Menus/none.inc\n"
                         "layout.loadlayout painted.bmp\nsetlocalflag x maybe\n"
                         "#check widest label \xC3\xBC\nsetglobalflag x 0\n"
                         "onenter:\naddwidget back\naddwidget label \xC3\xBC\n");
    folder.write("Menus/block.inc", "# itself\ninclude Menus/block.inc\n");
    folder.write("painted.bmp", dot());
    folder.write("painted.idx", "widget dot\npickcolor 0000ff\n\nwidget lost\npickcolor #00ff00\n");
    folder.write("Language/en.txt", "# \xC3\xA9\n1: \xC5\x81\n");
    EXPECT_EQ(
        faultsOf(folder.path()),
        (Lines{"Language/en.txt:2: Windows-1252 lacks the character U+0141",
               "Language/en.txt:2: text 1 is not used (#check text allows it)",
               "Menus/A.ini:3: include of Menus/none.inc failed: the file can't be read",
               "Menus/A.ini:5: the value maybe has no effect: on or off",
               "Menus/A.ini:7: the value 0 has no effect: on or off",
               "Menus/block.inc:2: include of Menus/block.inc failed: the file includes "
               "itself",
               "painted.idx:1: layout=l element=dot defined, but not found in layout image",
               "painted.idx:2: loadLayout index painted.idx pickcolor must start with #",
               "painted.idx:4: layout=l element=lost defined, but not found in layout image"}));
}

TEST(MenuCheck, FollowsTargets) {
    expectFaults({
        {"onenter:\naddwidget back\naddwidget label\n", {}},
        {"onenter:\naddwidget back\naddwidget ok \" \" Nowhere\n",
         {"Menus/A.ini:4: no such state: Nowhere"}},
        {"onenter:\naddwidget back\naddwidget ok \" \" http://localhost/\n", {}},
        {"onenter:\naddwidget label\nsetautotransition 1 <A\n",
         {"Menus/A.ini:4: leads to its own screen: <A", "Menus/init.lst:1: A has no way out"}},
        {"onenter:\nsettransition quitApp\naddwidget label\nonenter:\naddwidget label\n"
         "addtextarea area\n",
         {"Menus/A.ini:5: a second section onenter in one file: the first never runs",
          "Menus/init.lst:1: A has no way out"}},
        {"#check leads quitApp\nonenter:\naddwidget label\naddtextarea area\n", {}},
    });
}

TEST(MenuCheck, RunsTheSectionOfEachHitOnAFreshScreen) {
    expectFaults({
        {"onenter:\naddwidget back\naddwidget ok\n"
         "onhit ok:\naddwidget other\naddwidget label \" \" Nowhere\nsettransition A\n",
         {"Menus/A.ini:4: ok overlaps other",
          "Menus/A.ini:6: other can be pressed and does nothing",
          "Menus/A.ini:7: no such state: Nowhere", "Menus/A.ini:8: leads to its own screen: A"}},
        {"onenter:\naddwidget back\naddwidget ok\n"
         "onhit ok:\nremovewidget ok\nonhit back:\nshowwidget ok\nonevent:\nresetwidget back\n",
         {}},
        {"onenter:\naddwidget back\naddwidget ok\nonhit ok:\nremovewidget ok\n"
         "onevent:\nresetwidget ok\n",
         {"Menus/A.ini:8: resetwidget of unknown widget ok"}},
    });
}

TEST(MenuCheck, KnowsWhatCodeAnswers) {
    const std::string lamp = "onenter:\naddwidget back\naddwidget lamp x\n";
    const std::string known =
        "code, leads, overlap, widest, says, kind, stretch, picture, text or conditions";
    expectFaults({
        {"#check code ok gone\nonenter:\naddwidget back\naddwidget ok \" \" quitApp\n",
         {"Menus/A.ini:2: no screen has the element gone",
          "Menus/A.ini:5: ok is answered by code and must have no target"}},
        {"#check code ok -> quitApp Nowhere\nonenter:\naddwidget ok\naddwidget label\n",
         {"Menus/A.ini:2: no such state: Nowhere"}},
        {"onenter:\naddwidget back\naddwidget ok\n",
         {"Menus/A.ini:4: ok can be pressed and does nothing"}},
        {lamp, {}},
        {"theme.definewidgettextcolorargb lamp FF0000 over\n" + lamp,
         {"Menus/A.ini:5: lamp can be pressed and does nothing"}},
        {"theme.definewidgetimagecolorargb lamp FF0000 down\n" + lamp,
         {"Menus/A.ini:5: lamp can be pressed and does nothing"}},
        {"#check hope\n#check\n#check code\n#check overlap x1..y2\n" + lamp,
         {"Menus/A.ini:2: unknown note hope: " + known, "Menus/A.ini:3: unknown note : " + known,
          "Menus/A.ini:4: the note code names too little",
          "Menus/A.ini:5: no range of names: x1..y2"}},
    });
}

TEST(MenuCheck, MeasuresPlacesAndImages) {
    const std::string pair = "onenter:\naddwidget back\naddwidget ok\naddwidget other\n";
    const std::string both = "onenter:\naddwidget back\naddwidget row1\naddwidget row2\n";
    const std::string rows = "layout.definewidget row1\nlayout.definewidgetsize 50 50\n"
                             "layout.definewidget row2\nlayout.definewidgetsize 50 50\n" +
                             both;
    const std::string touching = "layout.definewidget row1\nlayout.definewidgetsize 50 50\n"
                                 "layout.definewidgetposition 50 0\nlayout.definewidget row2\n";
    expectFaults({
        {touching + "layout.definewidgetsize 50 50\n" + both, {}},
        {touching + "layout.definewidgetsize 50 0\n" + both, {"Menus/A.ini:10: row2 has no size"}},
        {"onenter:\naddwidget back\naddwidget far \" \" quitApp\n",
         {"Menus/A.ini:4: far reaches out of the screen"}},
        {"#check code ok other\n" + pair, {"Menus/A.ini:5: ok overlaps other"}},
        {"#check code ok other\n#check overlap ok other\n" + pair, {}},
        {"#check code ok other\n" + pair + "hidewidget other\n", {}},
        {"#check overlap row1 row2\n" + rows, {}},
        {"#check overlap row1..row2\n" + rows + "hidewidget row2\n",
         {"Menus/A.ini:9: row1 overlaps row2"}},
        {"layout.definewidget label\nlayout.definewidgetimage Fonts/type17.png down\n"
         "onenter:\naddwidget back\naddwidget label \" \" quitApp\n",
         {"Menus/A.ini:6: label: the image Fonts/type17.png of 256 by 128 is drawn as 200 by 40 "
          "(#check stretch allows it)"}},
        {"layout.definewidget bare box\nlayout.definewidgetsize 9 9\n"
         "layout.definewidgetimage dot.bmp active inactive over\n"
         "onenter:\naddwidget back\naddwidget bare \" \" quitApp\n",
         {"Menus/A.ini:7: bare has no down image"}},
    });
}

TEST(MenuCheck, MeasuresTexts) {
    const std::string screen = "onenter:\naddwidget back\n";
    const std::string area = screen + "addtextarea area ";
    expectFaults({
        {screen + "addwidget label \"Exactly enough room\"\n", {}},
        {screen + "addwidget ok \"Exactly enough room\" quitApp\n", // less the border
         {"Menus/A.ini:4: ok: the text doesn't fit: Exactly enough room"}},
        {screen + "addwidget label \"\x81\"\n",
         {"Menus/A.ini:4: label: the font Fonts/type17 has no character 129 of \x81"}},
        {screen + "addwidget label \"two\\nlines\"\n",
         {"Menus/A.ini:4: label: a widget's text has one line: two lines"}},
        {screen + "addwidget flat low\n",
         {"Menus/A.ini:4: flat: the text is 22 pixels high in a room of 10: low"}},
        {area + "\"two\\nlines\"\n", {}},
        {area + "\"three\\nlines\\nin all\"\n",
         {"Menus/A.ini:4: area: the text doesn't fit: three lines in all"}},
        {area + "Staffelkapitaen\n",
         {"Menus/A.ini:4: area: a word is wider than its room: Staffelkapitaen"}},
        {"#check widest label x \"Halberstadt D.II of Jasta 2\"\n" + screen + "addwidget label\n",
         {"Menus/A.ini:2: label: the text doesn't fit: Halberstadt D.II of Jasta 2"}},
        {"#check kind button label\n#check kind none label\n"
         "#check widest label \"Exactly enough room\"\n" +
             screen + "addwidget label\n",
         {"Menus/A.ini:3: the theme has no kind none",
          "Menus/A.ini:4: label: the text doesn't fit: Exactly enough room"}},
        {"#check widest label\n" + screen + "addwidget label\n",
         {"Menus/A.ini:2: the note widest names too little"}},
    });
}

TEST(MenuCheck, ReadsTheTablesOfAllLanguages) {
    const TemporaryFolder folder;
    writeProgram(folder, "layout.definewidget label\nlayout.definewidgetlanguagetext 1\n"
                         "layout.definewidget flat\nlayout.definewidgetlanguagetext 2\n"
                         "#check text 5\nonenter:\naddwidget back\naddwidget label\n");
    folder.write("Language/de.txt", "1: Ein viel zu langer Text daf\xFCr\n5: x\n");
    folder.write("Language/en.txt", "# English\n1: Short\n2: b\n2:\n3: lost\n5: x\n");
    folder.write("Language/langcodes.dat", "en 1033\nfr 1036\n");
    EXPECT_EQ(faultsOf(folder.path()),
              (Lines{
                  "Language/en.txt:4: text 2 is empty",
                  "Language/en.txt:4: text 2 is there twice",
                  "Language/en.txt:5: text 3 is not used (#check text allows it)",
                  "Language/langcodes.dat:2: no table Language/fr.txt",
                  "Menus/A.ini:5: Language/de.txt has no text 2",
                  "Menus/A.ini:9: label: the text doesn't fit: Ein viel zu langer Text daf\xFCr",
              }));
}

TEST(MenuCheck, FillsTheTextsThatCodeSays) {
    const TemporaryFolder folder;
    writeProgram(folder, "#check says label 1 ( 2..3 )\n#check says label ( 1 Max ) ( 4 )\n"
                         "#check says label 1\n#check says label ( 4\n#check says label Max\n"
                         "onenter:\naddwidget back\naddwidget label\n");
    folder.write("Language/en.txt",
                 "#check text 5..6\n1: He is $1\n2: of it\n3: of the Jagdstaffel\n"
                 "4: and flies alone\n5: $1\n6: $1 $1\n");
    folder.write("Language/de.txt", "1: Das ist er\n2: da\n3: davon\n4: fliegt\n5: $1\n6: $1\n");
    const std::string marks = " has the marks none, in Language/en.txt $1";
    EXPECT_EQ(faultsOf(folder.path()),
              (Lines{
                  "Language/de.txt:1: text 1" + marks,
                  "Language/en.txt:7: text 6 has a mark twice",
                  "Menus/A.ini:2: label: the text doesn't fit: He is of the Jagdstaffel",
                  "Menus/A.ini:2: text 1 takes 0 arguments",
                  "Menus/A.ini:3: label: the text doesn't fit: He is Max and flies alone",
                  "Menus/A.ini:3: text 1 takes 0 arguments",
                  "Menus/A.ini:4: text 1 takes 1 arguments",
                  "Menus/A.ini:5: a parenthesis is missing",
                  "Menus/A.ini:6: the number of a text is missing",
              }));
}

TEST(MenuCheck, LoadsWhatNoScreenUses) {
    const TemporaryFolder folder;
    writeProgram(folder,
                 "theme.definewidgetimage seal wax all\ntheme.definewidgetsound seal s.wav\n"
                 "theme.definefont Fonts/none 3\nbitmap.preload Pictures/idle.bmp\n"
                 "bitmap.preload Pictures/used.bmp\ntheme.definewidgetimage used stamp all\n"
                 "#check picture Pictures/code.bmp\n"
                 "onenter:\naddwidget back\naddwidget label\n");
    for (const char* name : {"idle", "used", "code", "lost"})
        folder.write("Pictures/" + std::string(name) + ".bmp", dot());
    folder.write("Pictures/used.idx", "image stamp\n");
    EXPECT_EQ(
        faultsOf(folder.path()),
        (Lines{"Menus/A.ini:2: Did not find image wax", "Menus/A.ini:3: Cannot load sound s.wav",
               "Menus/A.ini:3: no sound s.wav", "Menus/A.ini:4: Font Fonts/none not found",
               "Menus/A.ini:4: Invalid font Fonts/none", "Menus/A.ini:4: no font Fonts/none",
               "Pictures/idle.bmp: warning: nothing shows it (#check picture allows it)",
               "Pictures/lost.bmp: warning: nothing shows it (#check picture allows it)"}));
}
