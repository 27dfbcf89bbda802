#include "tools/datacheck/DataCheck.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

// Jasta 11 for the two months in which the career draws the late Albatros D.II for the Germans.
constexpr const char* JastaFile = "Historical/Squadrons/501011.txt";
constexpr const char* JastaLine =
    "date=19170101 until=19170228 action=skin aircraft=albatrosd2late\r\n";
constexpr const char* AceFile = "Historical/Pilots/Manfred von Richthofen.txt";
constexpr const char* AceLine =
    "date=19170116 until=19170421 action=transfer unit=501011 acelevel=1\r\n";
constexpr const char* TemplateFile = "Missions/GenericTemplate.Mission";
constexpr const char* Template = "# Mission File Version = 1.0;\r\n\r\n"
                                 "Options\r\n{\r\n  Time = 9:30:0;\r\n}\r\n\r\n"
                                 "MCU_CMD_AttackArea\r\n{\r\n  Index = 1;\r\n  Name = \"A\";\r\n"
                                 "  Objects = [];\r\n  XPos = 1;\r\n  YPos = 2;\r\n  ZPos = 3;\r\n"
                                 "}\r\n\r\n"
                                 "MCU_TR_MissionBegin\r\n{\r\n  Index = 2;\r\n  Name = \"B\";\r\n"
                                 "}\r\n\r\n# end of file\r\n";

/// A data folder without a finding, for a test to spoil.
class DataCheck : public ::testing::Test {
protected:
    DataCheck() {
        folder.write(JastaFile, JastaLine);
        folder.write(AceFile, AceLine);
        folder.write(TemplateFile, Template);
        for (const char* nation : {"France", "England", "Germany", "USA"}) {
            folder.write(std::string("Names/") + nation + "_1st.txt", "Adam\r\nKarl\r\n");
            folder.write(std::string("Names/") + nation + "_2nd.txt", "Abel\r\nvon Kahr\r\n");
        }
    }

    /// The findings as the program prints them, without the folder in front.
    std::string findings() const {
        std::string text;
        for (tools::Finding& finding : datacheck::checkData(zel::String(folder.path()))) {
            finding.file.erase(0, folder.path().size() + 1);
            text += finding.text() + "\n";
        }
        return text;
    }

    /// A text that is empty or ends with a line feed is all that is reported, another one a part.
    void expectFinding(const std::string& wanted, const std::string& context) const {
        const std::string found = findings();
        const bool isAll = wanted.empty() || wanted.back() == '\n';
        EXPECT_TRUE(isAll ? found == wanted : found.find(wanted) != found.npos)
            << context << "\nfound: " << found << "\nwanted: " << wanted;
    }
    /// Adds each text after the good lines of a file and an empty one, as line 3. With it comes
    /// the finding without the file's name; an empty one for none.
    void expectFindings(const std::string& file, const std::string& good,
                        const std::vector<std::pair<std::string, std::string>>& cases) const {
        for (const auto& [line, finding] : cases) {
            folder.write(file, good + "\r\n" + line + "\r\n");
            expectFinding(finding.empty() ? "" : file + ":" + finding, line);
        }
        folder.write(file, good);
    }

    TemporaryFolder folder;
    LogCapture log;
};

TEST_F(DataCheck, FindsNothingInGoodData) {
    EXPECT_EQ(findings(), "");
    folder.write("Custom/Squadrons/501011.txt",
                 "DATE=19170201 until=19170331 aircraft=AlbatrosD2Late skin=red");
    folder.write("Custom/Pilots/Manfred von Richthofen.txt", "aircraft=albatrosd3 skin=red\n"
                                                             "date=19170401 unit=501011\n");
    folder.write("Custom/Squadrons/.hidden", "not read by the game");
    folder.write("Custom/Squadrons/folder/501.txt", "nor this");
    EXPECT_EQ(findings(), "") << "a player's lines follow the delivered ones";
}

TEST_F(DataCheck, ReportsLinesOfSquadrons) {
    const std::string line44 = "until=19170228 aircraft=albatrosd2late skin="; // 44 characters
    expectFindings(
        JastaFile, JastaLine,
        {
            // Aircraft and skins.
            {"date=19170101 until=19170228 aircraft=albatrossd3",
             "3: aircraft=albatrossd3 is not known: the nearest is albatrosd3\n"},
            {"until=19170228 aircraft=camel",
             "3: aircraft=camel is not known: the nearest is sopcamel\n"},
            {"until=19170228 aircraft=albatrosd3 skin=red;blue",
             "3: skin=red;blue is no file's name that the simulator can read"},
            {"until=19170228 aircraft=albatrosd3 skin=..\\red",
             "3: skin=..\\red is no file's name"},
            {"until=19170228 aircraft=albatrosd3 skin=d:red/", "3: skin=d:red/ is no file's name"},
            // Tokens that are not read.
            {"until=19170228 #",
             "3: \"#\" is not read: write key=value; there are no comments, and a value has no "
             "blanks\n"},
            {"plane=se5a", "3: \"plane=se5a\" has an unknown key: the keys are date until action"},
            {"date=", "3: \"date=\" has no value"},
            {"until=19170228=x", "3: \"until=19170228=x\" has a second \"=\""},
            {"until=19170228 until=19170201", "3: until= comes twice"},
            {"skin=red", "3: skin= is only read with aircraft="},
            {"unit=501011", "3: unit=, acelevel= and acepotential= are only read in pilot files"},
            // Blanks and length.
            {"date=19170101  until=19170228", "3: two blanks in a row"},
            {" date=19170101", "3: a blank at the start or end of the line"},
            {"   ", "3: a line of blanks"},
            {"date=19170101\tuntil=19170228", "3: a tab"},
            {"aircraft=albatrosd2late skin=r\xF6t", "3: a character outside of ASCII"},
            {line44 + std::string(256 - 44, 'x'),
             "3: the line has 256 characters, of which 255 are read"},
            {line44 + std::string(255 - 44, 'x'), ""},
            // Dates.
            {"date=19170229", "3: date=19170229 is not a date of the war"},
            {"date=191704101", "3: date=191704101 is not a date of the war"},
            {"date=19210101", "3: date=19210101 is not a date of the war"},
            {"until=April", "3: until=April is not a date of the war"},
            {"date=19170201 until=19170101", "3: until=19170101 is before date=19170201"},
            // Months with nothing to fly. In the last two of 1916 the Germans draw nothing but the
            // early D.II; without until= an aircraft is flown to the Armistice.
            {"date=19170401 until=19170415 aircraft=albatrosd3",
             "1: no aircraft from 1917-03: extend the until= of this line, or add a line for these "
             "months\n"},
            {"date=19161101 until=19170228 aircraft=albatrosd3",
             "1: the career uses none of the squadron's aircraft in 1916-11 to 1916-12: add a line "
             "with one of albatrosd2\n"},
            {"date=19181001 aircraft=fokkerd7", "1: no aircraft from 1917-03 to 1918-09"},
        });
}

TEST_F(DataCheck, ReportsLinesOfPilots) {
    folder.write("Custom/Squadrons/501013.txt",
                 "date=19170101 until=19170228 aircraft=albatrosd2late");
    const std::string posting = "date=19170501 unit=501011 ";
    expectFindings(
        AceFile, AceLine,
        {
            {"aircraft=fokkerdrI skin=red",
             "3: aircraft=fokkerdrI is not known: the nearest is fokkerdr1\n"},
            {"aircraft=fokkerdr1", "3: a personal paint needs both aircraft= and skin=\n"},
            {"date=19170501 unit=501010",
             "3: there is no squadron file for unit=501010: the nearest is 501011\n"},
            {"date=19170501 unit=501011-jasta",
             "3: unit=501011-jasta has more than 11 characters and matches no squadron\n"},
            {"date=19170501 unit=-9999999999",
             "3: there is no squadron file for unit=-9999999999: the nearest is 501011\n"},
            {"unit=501011", "3: unit= without date= never applies: write the day of the posting\n"},
            {"date=19170501 unit=501013", ""}, // a player's squadron counts
            {posting + "acelevel=2 acepotential=255", ""},
            {posting + "acelevel=3", "3: acelevel=3 is out of range: write 0 to 2\n"},
            {posting + "acelevel=-1", "3: acelevel=-1 is out of range: write 0 to 2\n"},
            {posting + "acepotential=256", "3: acepotential=256 is out of range: write 0 to 255\n"},
            {posting + "acepotential=99999999999", "3: acepotential=99999999999 is out of range"},
            {"acelevel=1", "3: acelevel= is only read with unit="},
        });
}

// Each file alone; a text with a line feed is all that is reported.
TEST_F(DataCheck, ReportsWholeFiles) {
    constexpr const char* Empty = "the file is empty: write its lines or delete it\n";
    constexpr const char* NoKey =
        "the file becomes a squadron, but its name isn't 101, 102, 103 or ";
    const std::string utf16("\xFF\xFE"
                            "d\0a\0t\0e\0",
                            10);
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {"Squadrons/501020.txt", "", Empty},
        {"Squadrons/501020.txt", "\r\n\r\n", Empty},
        {"Squadrons/501020.txt", std::string(64, '\0'),
         "the file holds nothing but zero bytes: write it again\n"},
        {"Squadrons/501020.txt", utf16,
         "the file is UTF-16: save it as plain text (ANSI or UTF-8)\n"},
        {"Squadrons/501020.txt", "\x89PNG\r\n\x1A\n\x01\x02",
         "the file is not text: delete it or save it as plain text\n"},
        {"Squadrons/501020.txt", "aircraft=albatrosd2late",
         "no line has a date=, so the squadron never enters the war: add it\n"},
        {"Squadrons/501020.txt", "date=19170101 until=19170228",
         "no line has aircraft=: add what the squadron flies\n"},
        {"Squadrons/50101.txt", JastaLine, NoKey},
        {"Squadrons/601011.txt", JastaLine, NoKey},
        {"Squadrons/501011a.txt", JastaLine, NoKey},
        {"Squadrons/501012.text", JastaLine, NoKey},
        {"Squadrons/501011-richthofen.txt", JastaLine,
         "the file's name has more than 11 characters"},
        {"Pilots/Ernst Udet.txt", "aircraft=fokkerd7 skin=lo",
         "no line has unit=, so the pilot never joins: add a posting\n"},
        {"Pilots/Viktor von Pressentin von Rautter.txt", AceLine,
         "the name has 33 characters, of which the simulator keeps 27"},
        {"Pilots/Hermann G\xC3\xB6ring.txt", AceLine, "the name has a character outside of ASCII"},
        {"Pilots/Ernst {Udet}.txt", AceLine, "the name has one of ; = { } \""},
        {"Pilots/Ernst  Udet.txt", AceLine, "the name has a blank too many"},
    };
    for (const auto& [file, content, finding] : cases) {
        const std::string path = folder.write("Custom/" + file, content);
        expectFinding("Custom/" + file + ": " + finding, content);
        std::filesystem::remove(path);
    }
}

TEST_F(DataCheck, ReportsRecordsThatCollideOrOverflow) {
    folder.write("Custom/Pilots/manfred von richthofen.txt", AceLine);
    folder.write("Custom/Pilots/Ernst Udet.txt", AceLine);
    folder.write("Custom/Pilots/Ernst Udet.dat", AceLine);
    EXPECT_EQ(findings(),
              "Custom/Pilots/Ernst Udet.txt: \"Ernst Udet\" is the name of another file in this "
              "folder: put the lines into one file\n"
              "Custom/Pilots/manfred von richthofen.txt: \"manfred von richthofen\" differs from "
              "\"Manfred von Richthofen\" in capitals only and would come twice: write the name in "
              "the same way\n");
    std::filesystem::remove_all(folder.file("Custom/Pilots"));
    std::string lines;
    for (int i = 0; i < 255; ++i)
        lines += "until=19170228 aircraft=albatrosd2late\n";
    folder.write("Custom/Squadrons/501011.txt", lines);
    EXPECT_EQ(findings(), "") << "256 lines fit, in both folders together";
    folder.write("Custom/Squadrons/501011.txt", lines + "\n" + lines);
    EXPECT_EQ(findings(),
              "Custom/Squadrons/501011.txt:257: \"501011\" has more than 256 lines, in both "
              "folders together: this one and the following ones are not used\n");
}

TEST_F(DataCheck, LooksForFrenchAircraftWhereTheCareerDoes) {
    // From December 1916 to March 1917 the Allied rows have nothing that the French take: the
    // career goes back to November 1916, to the early SPAD.
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=spad7early");
    EXPECT_EQ(findings(), "");
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=nieuport17");
    EXPECT_EQ(findings(), "Custom/Squadrons/101003.txt:1: the career uses none of the squadron's "
                          "aircraft in 1916-12 to 1917-03: add a line with one of spad7early\n");
}

TEST_F(DataCheck, ReportsFaultyNameLists) {
    std::filesystem::remove(folder.file("Names/France_1st.txt"));
    folder.write("Names/Germany_1st.txt", "Karl \nAdam\nadam\nJo=rg\n");
    folder.write("Names/USA_1st.txt", "Bartholomew-Matthew\n");
    EXPECT_EQ(findings(),
              "Names/France_1st.txt: the file is missing or can't be read\n"
              "Names/Germany_1st.txt:1: the name has a blank too many: write one blank between its "
              "parts\n"
              "Names/Germany_1st.txt:3: adam is there twice: remove one\n"
              "Names/Germany_1st.txt:4: the name has one of ; = { } \" which the simulator can't "
              "read: leave it out, or missions have Jo-rg\n"
              "Names/USA_1st.txt:1: Bartholomew-Matthew von Kahr has 28 characters, of which "
              "the simulator keeps 27: remove the longest names\n");
}

TEST_F(DataCheck, ReportsAFaultyTemplate) {
    const std::tuple<const char*, const char*, const char*> edits[] = {
        {"MCU_CMD_AttackArea", "MCU_CMD_Land", "no attack area"},
        {"MCU_TR_MissionBegin", "MCU_CMD_AttackArea", ":18: a second attack area"},
        {"MCU_TR_MissionBegin", "MCU_Timer", "nothing starts the fight"},
        {"Options", "Settings", "first block must be Options"},
        {"Index = 2", "Index = 1", "Index 1 is there twice"},
        {"Index = 2", "Note = 1", "no Index above 0"},
        {"  Name = \"B\";", "  Desc = \"\";", "without Name follows the attack area"},
        {"MCU_TR_MissionBegin", "Airfield", "is not logic"},
        {"  YPos = 2;", "\tYPos = 2;", ":14: a tab"},
        {"  Objects = [];\r\n", "", "no line objects"},
        {"}\r\n\r\n#", "#", "don't match"},
    };
    for (const auto& [part, other, finding] : edits) {
        std::string text = Template;
        folder.write(TemplateFile, text.replace(text.find(part), std::string(part).size(), other));
        expectFinding(finding, other);
    }
}

TEST_F(DataCheck, SurvivesFilesCutAnywhere) {
    const std::string whole = Template;
    const size_t end = whole.find("# end");
    for (size_t length = 0; length < whole.size(); ++length) {
        folder.write(TemplateFile, whole.substr(0, length));
        // After the last brace nothing of weight is left.
        EXPECT_EQ(findings().empty(), length + 4 >= end) << "template cut at " << length;
    }
    folder.write(TemplateFile, Template);
    const std::string line = AceLine;
    for (size_t length = 0; length < line.find(" acelevel"); ++length) {
        folder.write(AceFile, line.substr(0, length));
        EXPECT_NE(findings(), "") << "pilot cut at " << length;
    }
}

TEST(DataFolder, IsFoundFromInsideAndFromAbove) {
    const LogCapture log;
    const TemporaryFolder folder;
    folder.write("Data/Names/USA_1st.txt", "Adam");
    const zel::String data(folder.path() + "/Data");
    EXPECT_EQ(datacheck::findDataFolder(zel::String(folder.path())), data);
    EXPECT_EQ(datacheck::findDataFolder(data), data);
    EXPECT_EQ(datacheck::findDataFolder(data + "/Names"), "");
    EXPECT_NE(datacheck::checkData(data + "/Names").size(), 0u);
}

} // namespace
