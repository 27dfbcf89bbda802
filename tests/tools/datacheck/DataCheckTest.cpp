#include "tools/datacheck/DataCheck.h"

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Texts.h"

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

    /// A text that is empty or ends with a line feed must be the whole report, any other one a part
    /// of it.
    void expectFinding(const std::string& wanted, const std::string& context) const {
        const std::string found = findings();
        const bool isAll = wanted.empty() || wanted.back() == '\n';
        EXPECT_TRUE(isAll ? found == wanted : found.find(wanted) != found.npos)
            << context << "\nfound: " << found << "\nwanted: " << wanted;
    }
    /// Adds each text of the cases after the good lines of a file and an empty one, as line 3.
    /// After the "|" comes the finding without the file's name: its beginning if it ends in dots,
    /// none if it is empty.
    void expectFindings(const std::string& file, const std::string& good, const char* cases,
                        int32_t count) const {
        std::istringstream rows(fileText(std::string(CASES_FOLDER "/") + cases));
        for (std::string line, finding;
             std::getline(rows, line, '|') && std::getline(rows, finding); --count) {
            const size_t dots = finding.find("...");
            folder.write(file, good + "\r\n" + line + "\r\n");
            expectFinding(finding.empty() ? ""
                                          : file + ":" + finding.substr(0, dots) +
                                                (dots == finding.npos ? "\n" : ""),
                          line);
        }
        EXPECT_EQ(count, 0) << cases;
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
    expectFindings(JastaFile, JastaLine, "squadron-lines.txt", 26);
    for (const size_t length : {255U, 256U}) {
        std::string line = "until=19170228 aircraft=albatrosd2late skin=";
        line.resize(length, 'x');
        folder.write(JastaFile, JastaLine + line);
        expectFinding(length == 255 ? "" : ":2: the line has 256 characters, of which 255 are read",
                      line);
    }
}

TEST_F(DataCheck, ReportsLinesOfPilots) {
    folder.write("Custom/Squadrons/501013.txt",
                 "date=19170101 until=19170228 aircraft=albatrosd2late");
    expectFindings(AceFile, AceLine, "pilot-lines.txt", 13);
}

// Each file alone; a text with a line feed is the whole report.
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
         "the name has 33 characters; the simulator keeps 27"},
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

TEST_F(DataCheck, AcceptsAUnitOfTwoSeaters) {
    folder.write("Custom/Squadrons/501213.txt", "date=19160101 until=19181111 action=unit");
    EXPECT_EQ(findings(), "");
}

TEST_F(DataCheck, LooksForFrenchAircraftWhereTheCareerDoes) {
    // From December 1916 to March 1917 the Allied rows have nothing that the French take: the
    // career goes back to November 1916, to the early SPAD.
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=spad7early");
    EXPECT_EQ(findings(), "");
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=nieuport17");
    EXPECT_EQ(findings(),
              "Custom/Squadrons/101003.txt:1: warning: the career uses none of the squadron's "
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
              "Names/Germany_1st.txt:3: adam occurs twice: remove one\n"
              "Names/Germany_1st.txt:4: the name has one of ; = { } \" which the simulator can't "
              "read: leave it out, or missions have Jo-rg\n"
              "Names/USA_1st.txt:1: Bartholomew-Matthew von Kahr has 28 characters; the simulator "
              "keeps 27: remove the longest names\n");
}

TEST_F(DataCheck, ReportsAFaultyTemplate) {
    const std::tuple<const char*, const char*, const char*> edits[] = {
        {"MCU_CMD_AttackArea", "MCU_CMD_Land", "no attack area"},
        {"MCU_TR_MissionBegin", "MCU_CMD_AttackArea", ":18: a second attack area"},
        {"MCU_TR_MissionBegin", "MCU_Timer", "nothing starts the fight"},
        {"Options", "Settings", "first block must be Options"},
        {"Index = 2", "Index = 1", "Index 1 occurs twice"},
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
        // After the last brace nothing important is left.
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
