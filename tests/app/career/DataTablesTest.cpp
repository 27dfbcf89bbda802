#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace {

class DataTables : public testing::Test {
protected:
    /// The texts of a record's lines in its order, each followed by "|".
    template <typename Record> std::string linesOf(const Record& record) const {
        std::string text;
        for (const int32_t line : record.lines)
            if (line >= 0)
                text += std::string(career.dataLines[size_t(line)].text) + "|";
        return text;
    }

    SmallWorld world;
    Database career;
};

TEST_F(DataTables, CutsTheEndingFromAName) {
    for (const char* name : {"a.txt", "b", "c.jpeg", "d.x.dat", "e.t", ".hidden.txt",
                             "sub.dir/f.txt", "g.TXT", ".txt", "h.tx"})
        world.folder.write(std::string("Data/Historical/Pilots/") + name, "note\n");
    career.readDataFiles();
    std::string names;
    for (const PilotFile& file : career.pilotFiles)
        names += std::string(file.name) + " ";
    EXPECT_EQ(names, "a b c.jpeg d.x e.t g h.tx ");
}

TEST_F(DataTables, CutsWhatIsTooLong) {
    std::string lines;
    for (int i = 0; i < 200; ++i)
        lines += "delivered\n";
    world.addPilot("Many Lines", lines);
    world.addPilot("Many Lines", lines, "Custom");
    const std::string text(250, 'x');
    world.addPilot("Long Lines", text + "12345\n" + text + "123456\n");
    world.addPilot(std::string(70, 'n'), "");
    const LogCapture log;
    career.readDataFiles();
    ASSERT_EQ(career.pilotFiles.size(), 3u);
    EXPECT_EQ(career.dataLines.size(), 402u);
    EXPECT_EQ(career.pilotFiles[1].lines[255], 2 + 255);
    EXPECT_EQ(linesOf(career.pilotFiles[0]), text + "12345|" + text + "12345|");
    EXPECT_STREQ(career.pilotFiles[2].name, std::string(63, 'n').c_str());
    EXPECT_EQ(log.linesWith("lines are cut to 255"), 1);
    EXPECT_EQ(log.linesWith("only the first 256 lines"), 1);
    EXPECT_EQ(log.linesWith("the name is cut to 63"), 1);
}

TEST_F(DataTables, ReportsFoldersAndFilesItCannotRead) {
    fs::remove_all("Data/Historical");
    const LogCapture log;
    career.readDataFiles();
    EXPECT_EQ(log.linesWith("Path not found: Data\\Historical\\"), 2) << log.text();
    EXPECT_EQ(log.linesWith(""), 2) << "most players have nothing of their own";
#ifndef _WIN32
    world.addPilot("Anybody", "");
    ASSERT_EQ(mkfifo("Data/Historical/Pilots/Pipe.txt", 0600), 0);
    career.readDataFiles();
    ASSERT_EQ(career.pilotFiles.size(), 2u);
    EXPECT_STREQ(career.pilotFiles[1].name, "Pipe");
    EXPECT_EQ(linesOf(career.pilotFiles[1]), "");
    EXPECT_TRUE(log.holds("Pipe.txt: can't be read"));
#endif
}

TEST_F(DataTables, LivesWithFilesOfAnyBytes) {
    zel::Random noise(31);
    // clang-format off
    const std::string pieces[] = {
        "date=1915", "unit=101008", "acelevel=1", "=", " ", " ", "\n", "aircraft=se5a", "skin=",
        "acepotential=-99999999999", "unit=", "\xFF\xFE", "\t", "\r", std::string(3, '\0')};
    // clang-format on
    for (int i = 0; i < 40; ++i) {
        std::string text;
        while (text.size() < 3000)
            text += pieces[noise.getInt(0, int32_t(std::size(pieces)) - 1)];
        world.addSquadron(std::to_string(101001 + i * 7), text);
        world.addPilot("Pilot " + std::to_string(i), text);
    }
    const LogCapture log;
    career.createCareer(ServiceFrench);
    EXPECT_EQ(career.squadronFiles.size(), 40u);
    for (size_t i = 0; i < career.pilots.size(); i += 3)
        career.pilots[i].alive = 0;
    career.applyHistory();
    EXPECT_EQ(careerFaults(career), "");
}

TEST_F(DataTables, FindsWhatASquadronFlies) {
    world.addHistory();
    career.readDataFiles();
    EXPECT_TRUE(career.hasAircraft("101003", "nieuport17")) << "dates play no part";
    EXPECT_TRUE(career.hasAircraft("101003", "SPAD7early"));
    EXPECT_FALSE(career.hasAircraft("101003", "spad7"));
    EXPECT_FALSE(career.hasAircraft("101004", "nieuport17"));
    EXPECT_FALSE(career.hasAircraft("10100", "nieuport17"));
    EXPECT_FALSE(career.hasAircraft("", "nieuport17"));
}

TEST_F(DataTables, FindsThePaintOfSquadronsAndPilots) {
    world.addSquadron("102056", "aircraft=se5a\nskin=none\naircraft=SE5A skin=a skin=b\n"
                                "skin=c aircraft=se5a\nAIRCRAFT=sopcamel SKIN=Pup\n");
    world.addPilot("Karl Falke", "aircraft=fokkerdr1\nskin=red aircraft=fokkerDR1\n"
                                 "aircraft=fokkerd7 skin=blue\n");
    career.readDataFiles();
    for (const auto& [key, plane, skin] :
         {std::tuple{"102056", "se5a", "a"}, // the first of the first that has one
          {"102056", "sopcamel", "Pup"},
          {"102056", "dh2", ""},
          {"102057", "se5a", ""}})
        EXPECT_EQ(career.squadronSkin(key, plane), skin) << key << plane;
    for (const auto& [file, plane, skin] : {std::tuple{0, "fokkerdr1", "red"},
                                            {0, "fokkerd7", "blue"},
                                            {0, "fokkerd8", ""},
                                            {-1, "fokkerd7", ""},
                                            {1, "fokkerd7", ""}})
        EXPECT_EQ(career.pilotSkin(file, plane), skin) << file << plane;
}

} // namespace
