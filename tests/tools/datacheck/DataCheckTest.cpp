#include "tools/datacheck/DataCheck.h"

#include <filesystem>
#include <map>

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

::testing::AssertionResult holds(const std::string& text, const std::string& part) {
    if (text.find(part) != std::string::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "no \"" << part << "\" in \"" << text << "\"";
}

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

    /// The faults when a line follows the good one of a file.
    std::string withLine(const std::string& file, const std::string& line) const {
        const std::string good = file == JastaFile ? JastaLine : AceLine;
        folder.write(file, good + "\r\n" + line + "\r\n");
        const std::string found = faults();
        folder.write(file, good);
        return found;
    }
    std::string withSquadronLine(const std::string& line) const {
        return withLine(JastaFile, line);
    }
    std::string withPilotLine(const std::string& line) const { return withLine(AceFile, line); }

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

TEST_F(DataCheck, NamesTheNearestAircraft) {
    EXPECT_EQ(withSquadronLine("date=19170101 until=19170228 aircraft=albatrossd3"),
              std::string(JastaFile) +
                  ":3: aircraft=albatrossd3 is not known: the nearest is albatrosd3\n")
        << "the line as an editor counts it, with the empty one";
    EXPECT_TRUE(
        holds(withSquadronLine("date=19170101 until=19170228 aircraft=camel"), "is sopcamel\n"));
    EXPECT_TRUE(holds(withSquadronLine("until=19170228 aircraft=albatrosd3 skin=red;blue"),
                      "skin=red;blue holds one of ; { } \" which the simulator can't read"));
    EXPECT_TRUE(holds(withPilotLine("aircraft=fokkerdrI skin=red"), "nearest is fokkerdr1\n"));
}

TEST_F(DataCheck, ReportsTokensThatAreNotRead) {
    EXPECT_EQ(withSquadronLine("date=19170101 until=19170228 # my squadron"),
              std::string(JastaFile) +
                  ":3: \"#\" is no key=value and isn't read; there are no comments, and a value "
                  "holds no blank\n" +
                  JastaFile +
                  ":3: \"my\" is no key=value and isn't read; there are no comments, and a value "
                  "holds no blank\n" +
                  JastaFile +
                  ":3: \"squadron\" is no key=value and isn't read; there are no comments, and a "
                  "value holds no blank\n");
    const std::map<const char*, const char*> faultOf = {
        {"plane=se5a", "\"plane=se5a\" has an unknown key: the keys are date until action"},
        {"date=", "\"date=\" has no value"},
        {"until=19170228=x", "has a second \"=\""},
        {"until=19170228 until=19170201", "until= stands twice in the line"},
        {"skin=red", "skin= is read beside aircraft= only"},
        {"unit=501011", "unit=, acelevel= and acepotential= are read in pilot files only"},
    };
    for (const auto& [line, fault] : faultOf)
        EXPECT_TRUE(holds(withSquadronLine(line), fault)) << line << ": " << withSquadronLine(line);
}

TEST_F(DataCheck, ReportsBlanksTabsAndLength) {
    const std::map<std::string, const char*> faultOf = {
        {"date=19170101  until=19170228", "two blanks in a row"},
        {" date=19170101", "a blank at the line's start or end"},
        {"date=19170101 ", "a blank at the line's start or end"},
        {"   ", "a line of blanks"},
        {"date=19170101\tuntil=19170228", "a tab"},
        {"aircraft=albatrosd2late skin=r\xF6t", "a character outside ASCII"},
        {"aircraft=albatrosd2late skin=" + std::string(230, 'x'), "cut behind 255"},
    };
    for (const auto& [line, fault] : faultOf)
        EXPECT_TRUE(holds(withSquadronLine(line), fault));
    EXPECT_EQ(withSquadronLine("aircraft=albatrosd2late until=19170228 skin=" +
                               std::string(255 - 47, 'x')),
              "")
        << "255 characters fit";
}

TEST_F(DataCheck, ReportsDatesThatAreNone) {
    for (const char* date : {"19170229", "1917041", "191704101", "17041917", "19210101", "April"})
        EXPECT_TRUE(holds(withSquadronLine(std::string("date=") + date + " until=19170228"),
                          std::string(":3: date=") + date + " is no date of the war"))
            << date;
    EXPECT_TRUE(holds(withPilotLine("date=19170401 until=19170301 unit=501011"),
                      "until=19170301 lies before date=19170401"));
}

TEST_F(DataCheck, ReportsNamesOfSquadronFiles) {
    for (const char* name : {"readme", "50101", "601011", "501011a"})
        folder.write(std::string("Custom/Squadrons/") + name + ".txt", JastaLine);
    folder.write("Custom/Squadrons/501012.text", JastaLine);
    folder.write("Custom/Squadrons/501011-richthofen.txt", JastaLine);
    const std::string found = faults();
    for (const char* name : {"readme.txt", "50101.txt", "601011.txt", "501011a.txt", "501012.text"})
        EXPECT_TRUE(
            holds(found, std::string(name) + ":1: the file becomes a squadron, but its name"));
    EXPECT_TRUE(
        holds(found, "501011-richthofen.txt:1: the file's name has more than 11 characters"));
}

TEST_F(DataCheck, ReportsUnitsThatAreNotThere) {
    EXPECT_EQ(withPilotLine("date=19170501 unit=501010"),
              std::string(AceFile) +
                  ":3: there is no squadron file for unit=501010; the nearest is 501011\n");
    EXPECT_EQ(withPilotLine("date=19170501 unit=501011-jasta"),
              std::string(AceFile) +
                  ":3: unit=501011-jasta has more than 11 characters and matches no squadron\n");
    EXPECT_EQ(withPilotLine("unit=501011"),
              std::string(AceFile) +
                  ":3: unit= without date= never applies: write the day of the posting\n");
    folder.write("Custom/Squadrons/501010.txt",
                 "date=19170101 until=19170228 aircraft=albatrosd2late");
    EXPECT_EQ(withPilotLine("date=19170501 unit=501010"), "") << "a player's squadron counts";
}

TEST_F(DataCheck, ReportsLevelsOutOfRange) {
    const std::string line = "date=19170501 unit=501011 ";
    EXPECT_EQ(withPilotLine(line + "acelevel=2 acepotential=255"), "");
    for (const char* token : {"acelevel=3", "acelevel=-1", "acelevel=two"})
        EXPECT_TRUE(holds(withPilotLine(line + token), "is out of range: write 0 to 2")) << token;
    for (const char* token : {"acepotential=256", "acepotential=99999999999"})
        EXPECT_TRUE(holds(withPilotLine(line + token), "is out of range: write 0 to 255")) << token;
    EXPECT_TRUE(holds(withPilotLine("acelevel=1"), "read beside unit= only"));
}

TEST_F(DataCheck, ReportsNamesThatTheSimulatorCannotHave) {
    const std::map<std::string, const char*> faultOf = {
        {"Viktor von Pressentin von Rautter", "has 33 characters, at most 27 fit"},
        {"Hermann G\xC3\xB6ring", "outside ASCII"},
        {"Ernst; Udet", "one of ; = { } \""},
        {"Ernst {Udet}", "one of ; = { } \""},
        {"Ernst  Udet", "a blank too many"},
    };
    for (const auto& [name, fault] : faultOf)
        folder.write("Custom/Pilots/" + name + ".txt", AceLine);
    const std::string found = faults();
    for (const auto& [name, fault] : faultOf) {
        const size_t place = found.find("Custom/Pilots/" + name + ".txt:1: ");
        ASSERT_NE(place, std::string::npos) << name << "\n" << found;
        EXPECT_LT(found.find(fault, place), found.find('\n', place)) << name << "\n" << found;
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

TEST_F(DataCheck, ReportsMonthsWithNothingToFly) {
    EXPECT_EQ(withSquadronLine("date=19170401 until=19170415 aircraft=albatrosd3"),
              std::string(JastaFile) +
                  ":1: no aircraft from 1917-03: carry this line's until= on, or "
                  "add a line for these months\n");
    EXPECT_EQ(withSquadronLine("date=19161101 until=19170228 aircraft=albatrosd3"),
              std::string(JastaFile) +
                  ":1: none of its aircraft is in use in the career in 1916-11 to "
                  "1916-12: add a line with one of albatrosd2\n")
        << "in these two months the Germans draw nothing but the early D.II";
    EXPECT_TRUE(
        holds(withSquadronLine("date=19181001 aircraft=fokkerd7"), "from 1917-03 to 1918-09"));
    EXPECT_TRUE(holds(withSquadronLine("date=19180101 aircraft=fokkerd7"),
                      "1918-01 to 1918-04: add a "
                      "line with one of fokkerdr1"))
        << "without until= a type is flown to the Armistice";
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

TEST_F(DataCheck, ReportsFilesThatDoNothing) {
    folder.write("Custom/Squadrons/501020.txt", "aircraft=albatrosd2late");
    folder.write("Custom/Squadrons/501021.txt", "date=19170101 until=19170228");
    folder.write("Custom/Pilots/Ernst Udet.txt", "aircraft=fokkerd7 skin=lo");
    EXPECT_EQ(
        faults(),
        "Custom/Pilots/Ernst Udet.txt:1: no line has unit=, so the pilot never joins: add a "
        "posting\n"
        "Custom/Squadrons/501020.txt:1: no line has a date=, so the squadron never enters the "
        "war: add it\n"
        "Custom/Squadrons/501021.txt:1: no line has aircraft=: add the types that the squadron "
        "flies\n");
}

TEST_F(DataCheck, ReportsFilesThatAreNoData) {
    const std::map<std::string, std::string> contents = {
        {"501020", ""},
        {"501021", "\r\n\r\n"},
        {"501022", std::string(64, '\0')},
        {"501023", std::string("\xFF\xFE"
                               "d\0a\0t\0e\0",
                               10)},
        {"501024", "\x89PNG\r\n\x1A\n\x01\x02"},
    };
    for (const auto& [name, content] : contents)
        folder.write("Custom/Squadrons/" + name + ".txt", content);
    EXPECT_EQ(
        faults(),
        "Custom/Squadrons/501020.txt:1: the file is empty: write its lines or delete it\n"
        "Custom/Squadrons/501021.txt:1: the file is empty: write its lines or delete it\n"
        "Custom/Squadrons/501022.txt:1: the file holds nothing but zero bytes: write it anew\n"
        "Custom/Squadrons/501023.txt:1: the file is UTF-16: save it as plain text (ANSI or "
        "UTF-8)\n"
        "Custom/Squadrons/501024.txt:1: the file is no text: delete it or save it as plain "
        "text\n");
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
    const std::string good = Template;
    const auto with = [&](const std::string& part, const std::string& other) {
        std::string text = good;
        text.replace(text.find(part), part.size(), other);
        folder.write(TemplateFile, text);
        return faults();
    };
    EXPECT_TRUE(holds(with("MCU_CMD_AttackArea", "MCU_CMD_Land"), "no attack area"));
    EXPECT_TRUE(
        holds(with("MCU_TR_MissionBegin", "MCU_CMD_AttackArea"), ":18: a second attack area"));
    EXPECT_TRUE(holds(with("Options", "Settings"), "first block must be Options"));
    EXPECT_TRUE(holds(with("Index = 2", "Index = 1"), "Index 1 is there twice"));
    EXPECT_TRUE(holds(with("Index = 2", "Note = 1"), "no Index above 0"));
    EXPECT_TRUE(holds(with("  Name = \"B\";", "  Desc = \"\";"), "right behind the attack area"));
    EXPECT_TRUE(holds(with("MCU_TR_MissionBegin", "Airfield"), "no logic block"));
    EXPECT_TRUE(holds(with("  YPos = 2;", "\tYPos = 2;"), ":14: a tab"));
    EXPECT_TRUE(holds(with("  Objects = [];\r\n", ""), "no line objects"));
    EXPECT_TRUE(holds(with("}\r\n\r\n#", "#"), "don't pair"));
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
