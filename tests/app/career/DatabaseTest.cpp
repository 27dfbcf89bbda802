#include "app/career/Database.h"

#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/CareerInvariants.h"
#include "tests/support/Draws.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

std::string nameOf(const Pilot& pilot) { return std::string(zel::arrayText(pilot.name)); }

TEST(Database, ReportsMissingNames) {
    const SmallWorld world;
    world.folder.write("Data/Names/France_2nd.txt", "\n");
    std::filesystem::remove("Data/Names/Germany_1st.txt");
    const LogCapture log;
    Database career;
    EXPECT_EQ(log.linesWith(" w "), 2) << log.text();
    EXPECT_TRUE(log.holds("Data/Names/France_2nd.txt") && log.holds("Data/Names/Germany_1st.txt"));
    career.addSquadron(France);
    career.addSquadron(Germany);
    const std::set<std::string> names{"Jean", "Luc", "Rene", "Braun", "Klein"};
    for (const Pilot& pilot : career.pilots)
        EXPECT_EQ(names.count(nameOf(pilot)), 1u) << nameOf(pilot) << ": half of a name";
    EXPECT_EQ(log.linesWith(" w "), 2) << "said once";
}

TEST(Database, NamesPilotsOfUnknownNations) {
    const SmallWorld world;
    Database career;
    for (const int32_t nation : {0, 499, 500, 999}) {
        const LogCapture log;
        career.addSquadron(nation);
        const zel::String name(nameOf(career.pilots.back()));
        const bool isEnglish = name.right(5) == "Smith" || name.right(5) == "Brown";
        EXPECT_EQ(isEnglish, nation < 500) << nation << ": " << name.c_str();
        EXPECT_EQ(log.linesWith("UNKNOWN NATION: " + std::to_string(nation)), 12);
    }
}

// Compared with tests/reference/career.py: the whole save file, and the rounds of the player's
// choice, his pilot, the values drawn.
TEST(Database, CreatesACareerAsTheReferenceDoes) {
    SmallWorld world;
    world.addHistory();
    for (const int32_t service : {ServiceFrench, ServiceEnglish, ServiceGerman}) {
        const std::string file = "save" + std::to_string(service);
        Database career;
        world.pin(career);
        zel::seedSharedRandom(2);
        world.planes.seed(3);
        const LogCapture log;
        career.createCareer(service);
        std::istringstream figures(referenceResult(file + ".txt"));
        int64_t rounds = 0, player = 0, draws = 0, planeDraws = 0;
        figures >> rounds >> player >> draws >> planeDraws;
        EXPECT_TRUE(log.holds("Counter: " + std::to_string(rounds) + "\n")) << log.text();
        EXPECT_EQ(log.linesWith("Selected aircraft: "), 1);
        EXPECT_EQ(career.playerPilot, player);
        EXPECT_EQ(drawsBetween(zel::Random(1), career.random), draws);
        EXPECT_EQ(drawsBetween(zel::Random(2), zel::sharedRandom()), 2 * 400);
        EXPECT_EQ(drawsBetween(zel::Random(3), world.planes), planeDraws);
        EXPECT_EQ(careerFaults(career), "");
        EXPECT_TRUE(career.storeFile(SaveFileName));
        EXPECT_TRUE(world.savedBytes() == referenceResult(file)) << "service " << service;
    }
}

TEST(Database, TakesTheLowestDateOfAFile) {
    SmallWorld world;
    world.addHistory();
    world.addSquadron("501999", "date= date=190 date=19180101 DATE=1917\ndate=1917050199999 x\n");
    Database career;
    career.createCareer(ServiceGerman);
    const Squadron& squadron = career.squadrons[3];
    EXPECT_STREQ(squadron.key, "501999");
    EXPECT_STREQ(squadron.earliestDate, "1917") << "three characters are too few";
    EXPECT_STREQ(career.squadronFiles[3].lastDate, "19170501999") << "cut to its array";
    EXPECT_STREQ(career.squadrons[0].earliestDate, "19151001") << "of the player's own file";
    EXPECT_STREQ(career.squadronFiles[2].lastDate, "19151115") << "the last, not the lowest";
    EXPECT_STREQ(career.squadrons[399].earliestDate, "");
}

TEST(Database, TakesBadKeysForNoNation) {
    SmallWorld world;
    world.addHistory();
    for (const char* key : {"10", "1o1003", "+12003", "300001"})
        world.addSquadron(key, "");
    world.addSquadron("101 Esc Cigogne", "aircraft=nieuport11");
    const LogCapture log;
    Database career;
    career.createCareer(ServiceFrench);
    EXPECT_EQ(careerFaults(career), "");
    std::map<std::string, int32_t> nations;
    for (const Squadron& squadron : career.squadrons)
        if (squadron.squadronFile >= 0)
            nations[squadron.key] = squadron.nation;
    const std::map<std::string, int32_t> expected{
        {"10", 0},       {"1o1003", 0},   {"+12003", 0},   {"300001", 300}, {"101 Esc Cig", 101},
        {"101003", 101}, {"102024", 102}, {"103094", 103}, {"501002", 501}};
    EXPECT_EQ(nations, expected);
    EXPECT_EQ(log.linesWith("belongs to no nation of the war"), 4) << log.text();
    EXPECT_TRUE(career.hasAircraft("101 Esc Cigogne", "nieuport11"));
    EXPECT_FALSE(career.hasAircraft("101 Esc Cig", "nieuport11")) << "the file has its full key";
}

TEST(Database, AddsNoSquadronsBeyondTheFilesOfAWholeWar) {
    SmallWorld world;
    for (int32_t number = 101001; number <= 101399; ++number)
        world.addSquadron(std::to_string(number), "aircraft=nieuport11");
    world.addSquadron("502001", "");
    const LogCapture log;
    Database career;
    career.createCareer(ServiceGerman);
    EXPECT_EQ(career.squadrons.size(), 400u);
    EXPECT_TRUE(log.holds("!! 0 [Database] No squadron of nation 501")) << log.text();
    EXPECT_EQ(career.playerPilot, career.squadrons[399].slots[0]) << "at least of its side";
    EXPECT_EQ(careerFaults(career), "");
}

TEST(Database, StartsASecondCareerFromScratch) {
    SmallWorld world;
    world.addHistory();
    Database career;
    career.careerNumber = 0;
    career.createCareer(ServiceGerman);
    const int32_t number = career.careerNumber;
    EXPECT_NE(number, 0) << "0 means none";
    career.year = 1918;
    career.previousInvitation = 5;
    const int32_t player = career.playerPilot;
    const LogCapture log;
    career.createCareer(3);
    EXPECT_EQ(log.linesWith("Unknown service 3"), 1);
    EXPECT_EQ(career.player().nation, France);
    EXPECT_NE(career.careerNumber, number) << "another career has another number";
    EXPECT_EQ(career.calendar().dateNumber(), 19151201);
    EXPECT_EQ(career.previousInvitation, -2);
    EXPECT_EQ(career.pilots[size_t(player)].missions, 0) << "the previous player";
    EXPECT_EQ(career.dataLines.size(), 10u) << "read again, and not added";
    EXPECT_EQ(careerFaults(career), "");
}

TEST(Database, GivesABlankRecordForABadIndex) {
    const SmallWorld world;
    Database career;
    const LogCapture log;
    EXPECT_EQ(career.playerSquadron().pilotCount, 0) << "without a career";
    EXPECT_EQ(log.text(), "!! 0 [Database] There is no pilot 0\n"
                          "!! 0 [Database] There is no squadron -1\n");
    career.pilot(career.squadrons[size_t(career.addSquadron(France))].slots[3]).skill = 7;
    EXPECT_EQ(career.pilots[3].skill, 7);
    career.pilot(12).shotdowns = 99; // is lost
    EXPECT_EQ(career.pilot(12).shotdowns, 0);
    EXPECT_EQ(career.pilot(12).alive, 0);
    EXPECT_EQ(career.squadron(INT32_MIN).slots[0], -1);
    EXPECT_EQ(career.dataLine(0).text[0], 0);
    EXPECT_EQ(log.linesWith("There is no pilot 12"), 3);
}

TEST(Database, SeedsEachDayOfEachCareer) {
    const SmallWorld world;
    Database career;
    std::set<uint32_t> seeds{0};
    for (career.careerNumber = 0; career.careerNumber < 40; ++career.careerNumber)
        for (career.month = 1; career.month <= 12; ++career.month)
            for (career.day = 1; career.day <= 28; ++career.day)
                seeds.insert(career.careerSeed());
    EXPECT_EQ(seeds.size(), 1 + 40u * 12 * 28) << "all differ, and none is 0";
}

} // namespace
