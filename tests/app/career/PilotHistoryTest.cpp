#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/Draws.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A career of three squadrons of twelve on 1 July 1916: A and B French, G German. The player is
/// the first pilot of A.
class PilotHistory : public testing::Test {
protected:
    PilotHistory() {
        world.pin(career);
        setDate(19160701);
        scheduleInvitation(career, 1);
        for (const auto& [nation, key] :
             {std::pair{France, "101001"}, {France, "101002"}, {Germany, "501011"}})
            zel::copyText(career.squadrons[size_t(career.addSquadron(nation))].key, key);
    }
    ~PilotHistory() override { EXPECT_EQ(careerFaults(career), ""); }

    void setDate(int32_t date) {
        career.year = date / 10000;
        career.month = date / 100 % 100;
        career.day = date % 100;
    }
    /// Reads a pilot's file of that text. It gets the index 0.
    void giveFile(const char* text, const char* name = "Karl Falke") {
        world.addPilot(name, text);
        career.readDataFiles();
    }
    Pilot& inSlot(int32_t squadron, int32_t slot) {
        return career.pilots[size_t(career.squadrons[size_t(squadron)].slots[slot])];
    }
    void kill(int32_t squadron, int32_t slot) { inSlot(squadron, slot).alive = 0; }
    bool isApplied(int32_t line) const { return career.dataLines[size_t(line)].applied != 0; }
    /// The squadron of the pilot whose file has index 0, -1 before he has joined.
    int32_t place() const {
        const int32_t pilot = career.pilotFiles[0].pilotIndex;
        return pilot < 0 ? -1 : career.pilots[size_t(pilot)].squadron;
    }
    /// Values that applyHistory draws.
    int64_t drawsOfHistory() {
        const zel::Random before(career.random);
        career.applyHistory();
        return drawsBetween(before, career.random);
    }

    SmallWorld world;
    Database career;
};

TEST_F(PilotHistory, TheFirstSquadronOfAKeyIsMeant) {
    giveFile("date=19160701 unit=101001\n");
    zel::copyText(career.squadrons[1].key, "101001");
    kill(1, 3);
    career.applyHistory();
    EXPECT_EQ(place(), -1) << "only the second one has a vacant slot";
    kill(0, 3);
    career.applyHistory();
    EXPECT_EQ(place(), 0);
}

TEST_F(PilotHistory, APilotJoinsTheFirstVacantSlot) {
    giveFile("date=19160701 until=19161231 action=transfer unit=501011 acelevel=2\n");
    EXPECT_EQ(drawsOfHistory(), 0);
    EXPECT_EQ(place(), -1) << "no slot is vacant";
    kill(2, 4);
    setDate(19160630);
    EXPECT_GE(drawsOfHistory(), 4) << "not due yet: a replacement";
    EXPECT_EQ(place(), -1);

    kill(2, 4);
    const int32_t dead = career.squadrons[2].slots[4];
    setDate(19160701);
    const LogCapture log(4);
    EXPECT_EQ(drawsOfHistory(), 2 + 1) << "a name that his own replaces, and the skill of level 2";
    const Pilot& pilot = inSlot(2, 4);
    EXPECT_STREQ(pilot.name, "Karl Falke");
    EXPECT_TRUE(pilot.alive == 1 && pilot.historic == 1 && pilot.pilotFile == 0);
    EXPECT_TRUE(pilot.nation == Germany && pilot.missions == 0 && pilot.shotdowns == 0);
    EXPECT_EQ(career.pilotFiles[0].pilotIndex, 37);
    EXPECT_EQ(career.pilots[size_t(dead)].alive, 0) << "the dead remain among the pilots";
    EXPECT_TRUE(
        log.holds("   0 [Database] Pilot Karl Falke joins squadron 501011 with acelevel=2\n"));
    EXPECT_FALSE(isApplied(0)) << "a joining line stays";
    EXPECT_EQ(drawsOfHistory(), 0) << "without any further effect";
}

TEST_F(PilotHistory, TheSkillFollowsTheLevel) {
    struct Case {
        const char* words;
        int64_t draws; // after the two of the name
        std::set<int32_t> skills;
    };
    for (const Case& c :
         {Case{"", 2, {9, 10}}, Case{"acelevel=0", 2, {9, 10}}, Case{"acelevel=1", 3, {10, 11, 12}},
          Case{"acelevel=2", 1, {9, 10}}, Case{"acelevel=7", 1, {9, 10}},
          Case{"AceLevel=1 acepotential=14", 3, {14}}, Case{"acepotential=300", 2, {255}},
          Case{"acepotential=-4", 2, {9, 10}}}) {
        giveFile("");
        const LogCapture log;
        std::set<int32_t> skills;
        std::vector<DataToken> tokens;
        const std::string line = std::string("unit=501011 ") + c.words;
        splitDataLine(line, tokens);
        for (int i = 0; i < 60; ++i) {
            career.pilotFiles[0].joined = 0;
            kill(2, 0);
            const zel::Random before(career.random);
            EXPECT_FALSE(career.applyPilotEvent("X", tokens, 0));
            EXPECT_EQ(drawsBetween(before, career.random), 2 + c.draws) << c.words;
            skills.insert(inSlot(2, 0).skill);
        }
        EXPECT_EQ(skills, c.skills) << c.words;
        EXPECT_EQ(log.linesWith(" w "), line.find('7') != line.npos ? 60 : 0) << c.words;
    }
}

TEST_F(PilotHistory, APilotMovesWithTheWorstOfTheOthers) {
    giveFile("date=19160101 unit=101001\ndate=19160801 unit=101002\nnote\n");
    kill(0, 3);
    career.applyHistory();
    ASSERT_EQ(place(), 0);
    for (int32_t slot = 0; slot < 12; ++slot)
        inSlot(1, slot).shotdowns = slot == 6 ? 0 : 1;
    const int32_t worst = career.squadrons[1].slots[6];
    const int32_t pilot = career.pilotFiles[0].pilotIndex;
    setDate(19160801);
    const LogCapture log(4);
    EXPECT_EQ(drawsOfHistory(), 0);
    EXPECT_TRUE(log.holds("Pilot Karl Falke moves to squadron 101002\n"));
    EXPECT_EQ(career.squadrons[1].slots[6], pilot);
    EXPECT_EQ(career.squadrons[0].slots[3], worst);
    EXPECT_TRUE(isApplied(0)) << "the line by which he joined is used up";
    EXPECT_TRUE(isApplied(1));
    EXPECT_FALSE(isApplied(2));
    career.applyHistory();
    EXPECT_EQ(place(), 1) << "he isn't taken back";
}

TEST_F(PilotHistory, PostingsAreUsedUpByTheirDates) {
    const struct {
        const char *what, *file;
        const char* places;  // A, B or none, on the days below
        const char* applied; // the lines that are used up then
    } cases[] = {
        {"he comes back",
         "date=19160101 unit=101001\ndate=19160801 unit=101002\ndate=19160901 unit=101001\n",
         "ABBAA", "111"},
        {"the first joins, the second moves",
         "date=19160101 unit=101001\ndate=19160201 unit=101002\n", "BBBBB", "11"},
        {"the player's own lines come after the delivered ones",
         "date=19160801 unit=101002\ndate=19160901 unit=101002\ndate=19160101 unit=101001\n",
         "ABBBB", "101"},
        {"they lead nowhere",
         "date=19160101 unit=101009\ndate=19160101 unit=\nunit=101001\n"
         "date=19161002 unit=101001\ndate=19160101 skin=red aircraft=dh2\n",
         "-----", "00000"},
    };
    for (const auto& [what, file, expected, expectedApplied] : cases) {
        giveFile(file);
        kill(0, 3);
        std::string places;
        for (const int32_t date : {19160701, 19160801, 19160831, 19160901, 19161001}) {
            setDate(date);
            career.applyHistory();
            places += "-AB"[place() + 1];
        }
        EXPECT_EQ(places, expected) << what;
        std::string applied;
        for (const DataLine& line : career.dataLines)
            applied += line.applied != 0 ? '1' : '0';
        EXPECT_EQ(applied, expectedApplied) << what;
        for (Pilot& pilot : career.pilots) // for the next case nobody has a file
            pilot.pilotFile = -1;
        career.pilotFiles.clear();
    }
}

TEST_F(PilotHistory, NeitherThePlayerNorAnAceGivesUpHisPlace) {
    giveFile("date=19160101 unit=101002\ndate=19160801 unit=101001\n");
    kill(1, 0);
    career.applyHistory();
    for (int32_t slot = 0; slot < 12; ++slot)
        inSlot(0, slot).pilotFile = slot == 0 ? -1 : 0;
    setDate(19160801);
    career.applyHistory();
    EXPECT_EQ(place(), 1) << "only the player has no file";
    EXPECT_FALSE(isApplied(1)) << "he tries again later";
    inSlot(0, 5).pilotFile = -1;
    career.applyHistory();
    EXPECT_EQ(career.squadrons[0].slots[5], career.pilotFiles[0].pilotIndex);
    for (int32_t slot = 0; slot < 12; ++slot)
        inSlot(0, slot).pilotFile = slot == 5 ? 0 : -1;
}

TEST_F(PilotHistory, TheDeadPlayersSlotIsForHisSuccessorAndADeadPilotsFileForNobody) {
    giveFile("date=19160101 unit=101001\ndate=19160801 unit=101002\n");
    kill(0, 0);
    career.applyHistory();
    EXPECT_EQ(place(), -1);
    EXPECT_EQ(career.playerPilot, 36);
    EXPECT_EQ(career.squadrons[0].slots[0], 36);
    EXPECT_EQ(career.player().pilotFile, -1);
    for (int i = 0; i < 2; ++i) { // the file's pilot joins, and falls
        kill(0, 3);
        career.applyHistory();
    }
    setDate(19160801);
    EXPECT_EQ(drawsOfHistory(), 0);
    EXPECT_FALSE(isApplied(1));
}

TEST_F(PilotHistory, EveryVacantSlotGetsOneReplacement) {
    std::set<int32_t> skills;
    for (int round = 0; round < 60; ++round) {
        const size_t before = career.pilots.size();
        kill(0, 7);
        kill(2, 2);
        career.applyHistory();
        ASSERT_EQ(career.pilots.size(), before + 2);
        for (const auto& [squadron, slot] : {std::pair{0, 7}, {2, 2}}) {
            const Pilot& pilot = inSlot(squadron, slot);
            EXPECT_EQ(pilot.nation, career.squadrons[size_t(squadron)].nation);
            EXPECT_TRUE(pilot.alive == 1 && pilot.historic == 0 && pilot.pilotFile == -1 &&
                        pilot.missions == 0 && pilot.shotdowns == 0);
            skills.insert(pilot.skill);
        }
    }
    EXPECT_EQ(*skills.begin(), 0);
    EXPECT_GT(*skills.rbegin(), 9) << "now and then one is better than ten";
}

TEST_F(PilotHistory, SwappedPilotsChangeTheirSlots) {
    const int32_t first = career.squadrons[0].slots[2];
    const int32_t second = career.squadrons[2].slots[11];
    EXPECT_TRUE(career.swapPilots(first, second));
    EXPECT_EQ(career.squadrons[0].slots[2], second);
    EXPECT_EQ(career.squadrons[2].slots[11], first);
    EXPECT_EQ(career.pilots[size_t(first)].squadron, 2);
    kill(1, 0);
    const int32_t dead = career.squadrons[1].slots[0]; // who loses it
    career.applyHistory();
    const int32_t comrade = career.squadrons[2].slots[0];
    for (const auto& [one, other] :
         {std::pair{first, comrade}, {first, first}, {-1, first}, {first, 37}, {dead, 5}})
        EXPECT_FALSE(career.swapPilots(one, other)) << one << " and " << other;
    EXPECT_EQ(career.squadrons[0].slots[5], 5);
    EXPECT_EQ(career.pilots[5].squadron, 0);
}

TEST_F(PilotHistory, TheRosterHasTheBestFirst) {
    for (int32_t slot = 0; slot < 12; ++slot) {
        Pilot& pilot = inSlot(0, slot);
        pilot.shotdowns = pilot.missions = pilot.skill = 1;
    }
    inSlot(0, 11).shotdowns = 2;
    inSlot(0, 10).missions = 2;
    inSlot(0, 9).skill = 2;
    inSlot(0, 0).skill = 0;
    inSlot(0, 1).alive = 0;
    inSlot(0, 1).shotdowns = 99;
    inSlot(0, 6).alive = 7; // any value but 0 means alive
    EXPECT_EQ(career.squadronRoster(0),
              (std::vector<int32_t>{11, 10, 9, 2, 3, 4, 5, 6, 7, 8, 0, 1}));
    EXPECT_TRUE(career.squadronRoster(-1).empty());
    EXPECT_TRUE(career.squadronRoster(3).empty());
    Squadron& squadron = career.squadrons[1];
    squadron.slots[20] = int32_t(career.pilots.size());
    squadron.slots[31] = 35;
    EXPECT_EQ(career.squadronRoster(1).size(), 13u) << "all 32 slots, below the number of pilots";
    squadron.slots[20] = squadron.slots[31] = -1;
}

TEST_F(PilotHistory, SquadronsAreActivatedByDateAndByStrength) {
    // Months since December 1914: 12 give France 20 and Germany 40, 13 give 21 and 43.
    for (int i = 0; i < 30; ++i)
        career.addSquadron(France);
    career.addSquadron(Usa);
    career.addSquadron(300);
    for (int i = 0; i < 50; ++i)
        career.addSquadron(Germany);
    for (const auto& [squadron, date] : {std::pair{0, "19151201"},
                                         {1, "19151202"},
                                         {2, "19151130"},
                                         {33, "19160101"},
                                         {34, "19151101"}}) {
        zel::copyText(career.squadrons[size_t(squadron)].earliestDate, date);
        career.squadrons[size_t(squadron)].squadronFile = int16_t(squadron);
    }
    const auto active = [this](int32_t nation) {
        return std::count_if(
            career.squadrons.begin(), career.squadrons.end(),
            [&](const Squadron& s) { return s.nation == nation && s.active != 0; });
    };
    const LogCapture log(4);
    career.activateSquadrons(1915, 12, 1);
    EXPECT_TRUE(log.holds(" Active squadrons: English=0 French=20 American=0 German=40\n"))
        << log.text();
    EXPECT_EQ(career.squadrons[0].active, 1) << "on its day";
    EXPECT_EQ(career.squadrons[1].active, 0) << "on the day before";
    EXPECT_EQ(active(France), 20);
    EXPECT_EQ(active(300), 1) << "by its date, uncounted";

    // The first generated squadron is active and counts again: the target is reached without a
    // new one.
    career.activateSquadrons(1915, 12, 31);
    EXPECT_EQ(active(France), 21);
    career.activateSquadrons(1916, 1, 1);
    EXPECT_EQ(active(France), 21);
    EXPECT_TRUE(log.holds("English=0 French=21 American=1 German=43\n")) << log.text();
    EXPECT_EQ(active(Germany), 40);
    for (Squadron& squadron : career.squadrons)
        squadron.squadronFile = -1;
}

} // namespace
