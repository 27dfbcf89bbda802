#include <chrono>
#include <filesystem>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/Texts.h"
#include "tools/makedata/DataFiles.h"

namespace {

using tables::FileSet;
using tables::Tables;

constexpr const char* SquadronHeader = "key,nation,name,aircraft,from,until,skin,source\n";
constexpr const char* AceHeader = "name,nation,born,victories,fate,fate_date,acepotential,source\n";
constexpr const char* PostingHeader = "name,key,from,until,acelevel,from_is,until_is,source\n";

/// Small tables without a fault, by file.
std::map<std::string, std::string> goodTables() {
    std::map<std::string, std::string> files = {
        {"history/squadrons.csv",
         std::string(SquadronHeader) +
             "102056,England,No 56 Squadron RFC,se5a,19170407,19181111,,general\n"
             "501011,Germany,Jasta 11,fokkerdr1,19170828,19180515,501011,general\n"
             "501011,Germany,Jasta 11,albatrosd3,19170201,19170725,,general\n"},
        {"history/aces.csv", std::string(AceHeader) +
                                 "Albert Ball,England,1896,44,killed,19170507,,general\n"
                                 "Lothar von Richthofen,Germany,1894,40,survived,,40,general\n"},
        {"history/postings.csv",
         std::string(PostingHeader) +
             "Albert Ball,102056,19170407,19170507,1,unit,fate,general\n"
             "Lothar von Richthofen,501011,19170306,19170513,1,day,day,general\n"
             "Lothar von Richthofen,501011,19170923,19180313,1,day,month,general\n"},
    };
    for (const char* nation : {"France", "England", "Germany", "USA"}) {
        files[std::string("names/") + nation + "_1st.txt"] = "Adam\nJean-Pierre\n";
        files[std::string("names/") + nation + "_2nd.txt"] = "Abbott\nO'Neill\n";
    }
    return files;
}

struct Reading {
    Tables tables;
    std::string findings; // a line each, without the folder
};

Reading readFrom(const TemporaryFolder& folder) {
    Reading reading;
    for (tools::Finding& finding : tables::readTables(folder.path(), reading.tables)) {
        finding.file.erase(0, folder.path().size() + 1);
        reading.findings += finding.text() + "\n";
    }
    return reading;
}

/// A folder with the good tables, for a test to damage.
struct MakeData : testing::Test {
    MakeData() {
        for (const auto& [name, content] : good)
            folder.write(name, content);
    }
    /// Reads the tables with other content in one file, which is restored afterwards.
    Reading readWith(const std::string& file, const std::string& content) const {
        folder.write(file, content);
        Reading reading = readFrom(folder);
        folder.write(file, good.at(file));
        return reading;
    }
    FileSet goodFiles() const { return tables::makeFiles(readFrom(folder).tables); }

    const std::map<std::string, std::string> good = goodTables();
    TemporaryFolder folder;
};

TEST_F(MakeData, WritesTheLinesInTheOrderOfTheirDates) {
    const FileSet files = goodFiles();
    EXPECT_EQ(files.at("Historical/Squadrons/501011.txt"),
              "date=19170201 until=19170725 action=skin aircraft=albatrosd3\r\n"
              "date=19170828 until=19180515 action=skin aircraft=fokkerdr1 skin=501011\r\n");
    EXPECT_EQ(
        files.at("Historical/Pilots/Lothar von Richthofen.txt"),
        "date=19170306 until=19170513 action=transfer unit=501011 acelevel=1 acepotential=40\r\n"
        "date=19170923 until=19180313 action=transfer unit=501011 acelevel=1 acepotential=40\r\n");
    EXPECT_EQ(files.at("Names/USA_2nd.txt"), "Abbott\r\nO'Neill\r\n");
    EXPECT_EQ(files.size(), 2u + 2u + 8u);
}

TEST_F(MakeData, WritesUnitsWithoutAircraftAndTypesWithoutDates) {
    const std::string file = "history/squadrons.csv";
    const std::string rows = "501011,Germany,Jasta 11,fokkere3,,,,general\n"
                             "501213,Germany,FA 13,,19140802,19181111,,general\n";
    const Reading reading = readWith(file, good.at(file) + rows);
    EXPECT_EQ(reading.findings, "");
    const FileSet files = tables::makeFiles(reading.tables);
    EXPECT_EQ(files.at("Historical/Squadrons/501213.txt"),
              "date=19140802 until=19181111 action=unit\r\n");
    EXPECT_EQ(files.at("Historical/Squadrons/501011.txt").rfind("action=skin aircraft=fokkere3", 0),
              0u);
}

TEST_F(MakeData, WritesWhatChangedAndRemovesWhatIsStale) {
    const FileSet files = goodFiles();
    ASSERT_TRUE(tables::writeFiles(files, folder.path()).empty());
    folder.write("Historical/Squadrons/501099.txt", "a squadron that left the tables");
    const char* const others[] = {"Historical/Squadrons/mine/note.txt", "Historical/note.txt",
                                  "Custom/Squadrons/501098.txt"};
    for (const char* other : others)
        folder.write(other, "not ours");
    folder.write("Names/USA_1st.txt", "broken");
    const std::string kept = "Historical/Squadrons/501011.txt";
    const auto longAgo =
        std::filesystem::last_write_time(folder.file(kept)) - std::chrono::hours(24);
    std::filesystem::last_write_time(folder.file(kept), longAgo);

    ASSERT_TRUE(tables::writeFiles(files, folder.path()).empty());
    EXPECT_FALSE(std::filesystem::exists(folder.file("Historical/Squadrons/501099.txt")));
    for (const char* other : others)
        EXPECT_EQ(folder.read(other), "not ours");
    EXPECT_EQ(folder.read("Names/USA_1st.txt"), files.at("Names/USA_1st.txt"));
    EXPECT_EQ(std::filesystem::last_write_time(folder.file(kept)), longAgo)
        << "an unchanged file is left alone";
}

TEST_F(MakeData, ReportsWhereItCannotWrite) {
    folder.write("Historical", "a file where the folder should be");
    const tools::Findings findings = tables::writeFiles(goodFiles(), folder.path());
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_NE(findings[0].file.find("Historical"), std::string::npos) << findings[0].text();
}

// A row of the file is a table, the bad row and the fault with its line.
TEST_F(MakeData, ReportsFaultyRowsWithTheirLines) {
    std::istringstream rows(fileText(CASES_FOLDER "/faulty-rows.txt"));
    int32_t count = 0;
    std::string table, row, fault;
    for (; std::getline(rows, table, '|') && std::getline(rows, row, '|') &&
           std::getline(rows, fault);
         ++count) {
        const std::string file = std::string("history/") + table + ".csv";
        const std::string wanted = file + ":" + fault;
        const std::string found = readWith(file, good.at(file) + row + "\n").findings;
        EXPECT_EQ(found.substr(0, wanted.size()), wanted);
    }
    EXPECT_EQ(count, 28);
}

TEST_F(MakeData, ReportsFaultyNameListsAndMissingFiles) {
    EXPECT_EQ(readWith("names/USA_1st.txt", "").findings,
              "names/USA_1st.txt:1: the list is empty\n");
    EXPECT_EQ(readWith("names/USA_1st.txt", "Adam\n Bert\nadam\n").findings,
              "names/USA_1st.txt:2: \" Bert\" can't be a name: write letters, \"'\" and \"-\"\n"
              "names/USA_1st.txt:3: adam occurs twice\n");
    EXPECT_EQ(readWith("history/squadrons.csv", "key;nation\n").findings.substr(0, 44),
              "history/squadrons.csv:1: the header must be ");
    const std::string ofNothing = readFrom(TemporaryFolder()).findings;
    EXPECT_EQ(ofNothing.rfind("history/squadrons.csv: the file can't be read\n", 0), 0u)
        << ofNothing;
}

// A truncated table is either reported, or is a good one with fewer rows.
TEST_F(MakeData, SurvivesATableCutAnywhere) {
    const FileSet whole = goodFiles();
    for (const char* file : {"history/squadrons.csv", "history/aces.csv", "history/postings.csv"}) {
        const std::string table = good.at(file);
        for (size_t length = 0; length < table.size(); ++length) {
            const Reading reading = readWith(file, table.substr(0, length));
            if (!reading.findings.empty())
                continue;
            EXPECT_GT(length, table.find('\n')) << file << " without its header";
            for (const auto& [name, content] : tables::makeFiles(reading.tables))
                EXPECT_NE(whole.at(name).find(content), std::string::npos)
                    << file << " cut at " << length;
        }
    }
}

} // namespace
