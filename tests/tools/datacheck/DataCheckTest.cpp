#include "tools/datacheck/DataCheck.h"

#include <filesystem>
#include <tuple>

#include <gtest/gtest.h>

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

/// A data folder without a fault, for a test to spoil.
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

    /// The faults as the program prints them, without the folder in front.
    std::string faults() const {
        std::string text;
        for (const datacheck::Fault& fault : datacheck::checkData(zel::String(folder.path()))) {
            const std::string file = fault.file.c_str();
            text += file.substr(folder.path().size() + 1) + ":" + std::to_string(fault.line) +
                    ": " + fault.what.c_str() + "\n";
        }
        return text;
    }

    /// A text that is empty or ends with a line feed is all that is told, another one a part of it.
    void expectFault(const std::string& wanted) const {
        const std::string told = faults();
        const bool isAll = wanted.empty() || wanted.back() == '\n';
        EXPECT_TRUE(isAll ? told == wanted : told.find(wanted) != told.npos)
            << "told: " << told << "\nwanted: " << wanted;
    }
    /// Puts each line behind the good one of a file and an empty one: as the third. With it stands
    /// what is told of it behind the file's name; nothing for no fault.
    void expectFaults(const std::string& file, const std::string& good,
                      const std::vector<std::pair<std::string, std::string>>& cases) const {
        for (const auto& [line, fault] : cases) {
            folder.write(file, good + "\r\n" + line + "\r\n");
            expectFault(fault.empty() ? "" : file + ":" + fault);
        }
        folder.write(file, good);
    }

    TemporaryFolder folder;
};

TEST_F(DataCheck, FindsNothingInGoodData) {
    EXPECT_EQ(faults(), "");
    folder.write("Custom/Squadrons/501011.txt",
                 "DATE=19170201 until=19170331 aircraft=AlbatrosD2Late skin=red");
    folder.write("Custom/Pilots/Manfred von Richthofen.txt", "aircraft=albatrosd3 skin=red\n"
                                                             "date=19170401 unit=501011\n");
    folder.write("Custom/Squadrons/.hidden", "not read by the program");
    folder.write("Custom/Squadrons/folder/501.txt", "nor this");
    EXPECT_EQ(faults(), "") << "a player's lines stand behind those delivered";
}

TEST_F(DataCheck, TellsWhatIsWrongInASquadronsLine) {
    expectFaults(
        JastaFile, JastaLine,
        {
            // Types and skins.
            {"date=19170101 until=19170228 aircraft=albatrossd3",
             "3: aircraft=albatrossd3 is not known: the nearest is albatrosd3\n"},
            {"until=19170228 aircraft=camel",
             "3: aircraft=camel is not known: the nearest is sopcamel\n"},
            {"until=19170228 aircraft=albatrosd3 skin=red;blue",
             "3: skin=red;blue holds one of ; { } \" which the simulator can't read"},
            // Tokens that are not read.
            {"until=19170228 #",
             "3: \"#\" is no key=value and isn't read; there are no comments, and a value holds no "
             "blank\n"},
            {"until=19170228 # my squadron", "3: \"my\" is no key=value"},
            {"plane=se5a", "3: \"plane=se5a\" has an unknown key: the keys are date until action"},
            {"date=", "3: \"date=\" has no value"},
            {"until=19170228=x", "3: \"until=19170228=x\" has a second \"=\""},
            {"until=19170228 until=19170201", "3: until= stands twice in the line"},
            {"skin=red", "3: skin= is read beside aircraft= only"},
            {"unit=501011", "3: unit=, acelevel= and acepotential= are read in pilot files only"},
            // Blanks and length.
            {"date=19170101  until=19170228", "3: two blanks in a row"},
            {" date=19170101", "3: a blank at the line's start or end"},
            {"date=19170101 ", "3: a blank at the line's start or end"},
            {"   ", "3: a line of blanks"},
            {"date=19170101\tuntil=19170228", "3: a tab"},
            {"aircraft=albatrosd2late skin=r\xF6t", "3: a character outside ASCII"},
            {"until=19170228 aircraft=albatrosd2late skin=" + std::string(256 - 44, 'x'),
             "3: the line has 256 characters and is cut behind 255"},
            {"until=19170228 aircraft=albatrosd2late skin=" + std::string(255 - 44, 'x'), ""},
            // Dates.
            {"date=19170229", "3: date=19170229 is no date of the war"},
            {"date=1917041", "3: date=1917041 is no date of the war"},
            {"date=191704101", "3: date=191704101 is no date of the war"},
            {"date=17041917", "3: date=17041917 is no date of the war"},
            {"date=19210101", "3: date=19210101 is no date of the war"},
            {"until=April", "3: until=April is no date of the war"},
            // Months with nothing to fly. In the last two of 1916 the Germans draw nothing but the
            // early D.II; without until= a type is flown to the Armistice.
            {"date=19170401 until=19170415 aircraft=albatrosd3",
             "1: no aircraft from 1917-03: carry this line's until= on, or add a line for these "
             "months\n"},
            {"date=19161101 until=19170228 aircraft=albatrosd3",
             "1: none of its aircraft is in use in the career in 1916-11 to 1916-12: add a line "
             "with one of albatrosd2\n"},
            {"date=19181001 aircraft=fokkerd7", "1: no aircraft from 1917-03 to 1918-09"},
            {"date=19180101 aircraft=fokkerd7", "1: none of its aircraft is in use in the career "
                                                "in 1918-01 to 1918-04: add a line with "
                                                "one of fokkerdr1"},
        });
}

TEST_F(DataCheck, TellsWhatIsWrongInAPilotsLine) {
    folder.write("Custom/Squadrons/501013.txt",
                 "date=19170101 until=19170228 aircraft=albatrosd2late");
    const std::string posting = "date=19170501 unit=501011 ";
    expectFaults(
        AceFile, AceLine,
        {
            {"aircraft=fokkerdrI skin=red",
             "3: aircraft=fokkerdrI is not known: the nearest is fokkerdr1\n"},
            {"date=19170401 until=19170301 unit=501011",
             "3: until=19170301 lies before date=19170401"},
            {"date=19170501 unit=501010",
             "3: there is no squadron file for unit=501010; the nearest is 501011\n"},
            {"date=19170501 unit=501011-jasta",
             "3: unit=501011-jasta has more than 11 characters and matches no squadron\n"},
            {"date=19170501 unit=-9999999999",
             "3: there is no squadron file for unit=-9999999999; the nearest is 501011\n"},
            {"unit=501011", "3: unit= without date= never applies: write the day of the posting\n"},
            {"date=19170501 unit=501013", ""}, // a player's squadron counts
            {posting + "acelevel=2 acepotential=255", ""},
            {posting + "acelevel=3", "3: acelevel=3 is out of range: write 0 to 2\n"},
            {posting + "acelevel=-1", "3: acelevel=-1 is out of range: write 0 to 2\n"},
            {posting + "acelevel=two", "3: acelevel=two is out of range: write 0 to 2\n"},
            {posting + "acepotential=256", "3: acepotential=256 is out of range: write 0 to 255\n"},
            {posting + "acepotential=99999999999", "3: acepotential=99999999999 is out of range"},
            {"acelevel=1", "3: acelevel= is read beside unit= only"},
        });
}

// Each file alone; a text with a line feed is all that is told.
TEST_F(DataCheck, TellsWhatIsWrongWithAFile) {
    constexpr const char* Empty = "the file is empty: write its lines or delete it\n";
    constexpr const char* NoKey =
        "the file becomes a squadron, but its name isn't 101, 102, 103 or ";
    constexpr const char* Signs = "the name holds one of ; = { } \"";
    const std::string utf16("\xFF\xFE"
                            "d\0a\0t\0e\0",
                            10);
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {"Squadrons/501020.txt", "", Empty},
        {"Squadrons/501020.txt", "\r\n\r\n", Empty},
        {"Squadrons/501020.txt", std::string(64, '\0'),
         "the file holds nothing but zero bytes: write it anew\n"},
        {"Squadrons/501020.txt", utf16,
         "the file is UTF-16: save it as plain text (ANSI or UTF-8)\n"},
        {"Squadrons/501020.txt", "\x89PNG\r\n\x1A\n\x01\x02",
         "the file is no text: delete it or save it as plain text\n"},
        {"Squadrons/501020.txt", "aircraft=albatrosd2late",
         "no line has a date=, so the squadron never enters the war: add it\n"},
        {"Squadrons/501020.txt", "date=19170101 until=19170228",
         "no line has aircraft=: add the types that the squadron flies\n"},
        {"Squadrons/readme.txt", JastaLine, NoKey},
        {"Squadrons/50101.txt", JastaLine, NoKey},
        {"Squadrons/601011.txt", JastaLine, NoKey},
        {"Squadrons/501011a.txt", JastaLine, NoKey},
        {"Squadrons/501012.text", JastaLine, NoKey},
        {"Squadrons/501011-richthofen.txt", JastaLine,
         "the file's name has more than 11 characters"},
        {"Pilots/Ernst Udet.txt", "aircraft=fokkerd7 skin=lo",
         "no line has unit=, so the pilot never joins: add a posting\n"},
        {"Pilots/Viktor von Pressentin von Rautter.txt", AceLine,
         "the name has 33 characters, at most 27 fit"},
        {"Pilots/Hermann G\xC3\xB6ring.txt", AceLine, "the name holds a character outside ASCII"},
        {"Pilots/Ernst; Udet.txt", AceLine, Signs},
        {"Pilots/Ernst {Udet}.txt", AceLine, Signs},
        {"Pilots/Ernst  Udet.txt", AceLine, "the name holds a blank too many"},
    };
    for (const auto& [file, content, fault] : cases) {
        const std::string path = folder.write("Custom/" + file, content);
        expectFault("Custom/" + file + ":1: " + fault);
        std::filesystem::remove(path);
    }
}

TEST_F(DataCheck, ReportsNamesThatComeTwice) {
    folder.write("Custom/Pilots/manfred von richthofen.txt", AceLine);
    folder.write("Custom/Pilots/Ernst Udet.txt", AceLine);
    folder.write("Custom/Pilots/Ernst Udet.dat", AceLine);
    EXPECT_EQ(
        faults(),
        "Custom/Pilots/Ernst Udet.txt:1: another file of this folder gives the name \"Ernst "
        "Udet\" as well: put the lines into one\n"
        "Custom/Pilots/manfred von richthofen.txt:1: \"manfred von richthofen\" is there "
        "already as \"Manfred von Richthofen\" and would come twice: write the name in the same "
        "way\n");
}

TEST_F(DataCheck, CountsTheLinesOfBothFolders) {
    std::string lines;
    for (int i = 0; i < 255; ++i)
        lines += "until=19170228 aircraft=albatrosd2late\n";
    folder.write("Custom/Squadrons/501011.txt", lines);
    EXPECT_EQ(faults(), "") << "256 lines fit";
    folder.write("Custom/Squadrons/501011.txt", lines + "\n" + lines);
    EXPECT_EQ(faults(),
              "Custom/Squadrons/501011.txt:257: \"501011\" has more than 256 lines, in both "
              "folders together: none from here on is used\n");
}

TEST_F(DataCheck, LooksForFrenchTypesWhereTheCareerDoes) {
    // From December 1916 to March 1917 the Allied rows hold nothing that the French take: the
    // career goes back to November 1916, to the early SPAD.
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=spad7early");
    EXPECT_EQ(faults(), "");
    folder.write("Custom/Squadrons/101003.txt", "date=19161201 until=19170331 aircraft=nieuport17");
    EXPECT_EQ(faults(),
              "Custom/Squadrons/101003.txt:1: none of its aircraft is in use in the career "
              "in 1916-12 to 1917-03: add a line with one of spad7early\n");
}

TEST_F(DataCheck, ReportsFaultyNameLists) {
    std::filesystem::remove(folder.file("Names/France_1st.txt"));
    folder.write("Names/England_1st.txt", "");
    folder.write("Names/Germany_1st.txt", "Karl \nAdam\nadam\nJo=rg\n");
    folder.write("Names/USA_1st.txt", "Bartholomew-Christopher\n");
    EXPECT_EQ(faults(),
              "Names/England_1st.txt:1: the file is empty: write its lines or delete it\n"
              "Names/France_1st.txt:1: the file is missing or can't be read\n"
              "Names/Germany_1st.txt:1: the name holds a blank too many: single blanks between its "
              "parts alone\n"
              "Names/Germany_1st.txt:3: adam is there twice: take one out\n"
              "Names/Germany_1st.txt:4: the name holds one of ; = { } \" which the simulator can't "
              "read: leave it out\n"
              "Names/USA_1st.txt:1: Bartholomew-Christopher von Kahr has 32 characters, at most 27 "
              "fit into the simulator: take the longest names out\n");
}

TEST_F(DataCheck, ReportsAFaultyTemplate) {
    const std::tuple<const char*, const char*, const char*> edits[] = {
        {"MCU_CMD_AttackArea", "MCU_CMD_Land", "no attack area"},
        {"MCU_TR_MissionBegin", "MCU_CMD_AttackArea", ":18: a second attack area"},
        {"Options", "Settings", "first block must be Options"},
        {"Index = 2", "Index = 1", "Index 1 is there twice"},
        {"Index = 2", "Note = 1", "no Index above 0"},
        {"  Name = \"B\";", "  Desc = \"\";", "right behind the attack area"},
        {"MCU_TR_MissionBegin", "Airfield", "no logic block"},
        {"  YPos = 2;", "\tYPos = 2;", ":14: a tab"},
        {"  Objects = [];\r\n", "", "no line objects"},
        {"}\r\n\r\n#", "#", "don't pair"},
    };
    for (const auto& [part, other, fault] : edits) {
        std::string text = Template;
        folder.write(TemplateFile, text.replace(text.find(part), std::string(part).size(), other));
        expectFault(fault);
    }
    std::filesystem::remove(folder.file(TemplateFile));
    EXPECT_EQ(faults(), std::string(TemplateFile) + ":1: the file is missing or can't be read\n");
}

TEST_F(DataCheck, SurvivesFilesCutAnywhere) {
    const std::string whole = Template;
    const size_t end = whole.find("# end");
    for (size_t length = 0; length < whole.size(); ++length) {
        folder.write(TemplateFile, whole.substr(0, length));
        // Behind the last brace nothing of weight is left.
        EXPECT_EQ(faults().empty(), length + 4 >= end) << "template cut at " << length;
    }
    folder.write(TemplateFile, Template);
    const std::string line = AceLine;
    for (size_t length = 0; length < line.find(" acelevel"); ++length) {
        folder.write(AceFile, line.substr(0, length));
        EXPECT_NE(faults(), "") << "pilot cut at " << length;
    }
}

TEST(DataFolder, IsFoundFromInsideAndFromAbove) {
    const TemporaryFolder folder;
    folder.write("Data/Names/USA_1st.txt", "Adam");
    const zel::String data(folder.path() + "/Data");
    EXPECT_EQ(datacheck::findDataFolder(zel::String(folder.path())), data);
    EXPECT_EQ(datacheck::findDataFolder(data), data);
    EXPECT_EQ(datacheck::findDataFolder(data + "/Names"), "");
    EXPECT_NE(datacheck::checkData(data + "/Names").size(), 0u);
}

} // namespace
