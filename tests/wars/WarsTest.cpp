#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/UnitNames.h"
#include "app/record/Sqlite.h"
#include "app/war/Invitations.h"
#include "standin/StandIn.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/PinnedRun.h"
#include "tests/support/Printers.h"
#include "tools/career/Session.h"

namespace {

/// A career over the delivered data, with a simulator that the stand-in plays.
struct War {
    explicit War(uint32_t seed) : run(seed), session(true, 0) {
        tools::Finding finding;
        EXPECT_TRUE(standin::makeSimulatorFolder(run.simulatorFolder(), finding)) << finding.text();
    }
    /// A flight and the period after it. Invitations are accepted and refused in turn.
    bool goOn(int32_t period) {
        if (invitationDue(career) &&
            !(period % 3 == 0 ? session.refuseInvitation() : session.acceptInvitation()))
            return false;
        return session.mission() && session.fly() && session.report();
    }

    PinnedRun run;
    Session session;
    Database& career = *Database::instance();
};

/// Figures that never fall from one period to the next.
struct Mark {
    explicit Mark(const Database& career)
        : date(career.calendar().dateNumber()), pilots(career.pilots.size()) {
        for (const DataLine& line : career.dataLines)
            applied += line.applied;
        for (const Squadron& squadron : career.squadrons)
            active += squadron.active;
    }
    int32_t date;
    size_t pilots;
    int32_t applied = 0;
    int32_t active = 0;
};

/// A whole career from that month to the end of the war, checked after each period. `result`: what
/// is saved then.
void fightTheWar(uint32_t seed, const CareerStart& start, std::string* result = nullptr) {
    War war(seed);
    ASSERT_TRUE(war.session.newCareer(start)) << war.session.problem().c_str();
    ASSERT_EQ(loadedCareerFaults(war.career), "");
    EXPECT_EQ(war.run.lines.linesWith(" w ") + war.run.lines.linesWith("!! "), 0)
        << "the delivered data leave nothing to warn of";
    const int32_t nation = war.career.playerSquadron().nation;
    constexpr int32_t Nations[] = {France, England, Germany};
    EXPECT_EQ(nation, Nations[start.service]);
    if (start.squadron) {
        EXPECT_EQ(zel::arrayText(war.career.playerSquadron().key), start.squadron->view());
    }
    EXPECT_TRUE(hasUnitName(unitNumber(war.career, war.career.playerSquadron().squadronFile)));
    EXPECT_GE(war.career.calendar().dateNumber(), start.year * 10000 + start.month * 100 + 1);

    int32_t periods = 0;
    while (war.career.calendar().dateNumber() < 19181111) {
        const Mark before(war.career);
        const int32_t player = war.career.playerPilot;
        ASSERT_TRUE(war.goOn(periods)) << war.session.problem().c_str();
        ++periods;
        const Mark after(war.career);
        ASSERT_EQ(loadedCareerFaults(war.career), "") << "on " << after.date;
        ASSERT_GT(after.date, before.date);
        ASSERT_GE(after.pilots, before.pilots);
        ASSERT_GE(after.applied, before.applied);
        ASSERT_GE(after.active, before.active);
        ASSERT_EQ(war.career.player().alive, 1) << "a successor stands in for the fallen";
        ASSERT_EQ(war.career.playerSquadron().nation, nation);
        ASSERT_NE(war.career.pilots[static_cast<size_t>(player)].alive != 0,
                  player != war.career.playerPilot)
            << "none but a fallen player gives up his place";
    }
    EXPECT_LT(war.career.calendar().dateNumber(), 19181201);
    EXPECT_GT(periods, (1918 - start.year) * 18) << "two or three periods a month";
    EXPECT_FALSE(war.session.mission()) << "the war is over";

    int32_t historic = 0;
    for (const PilotFile& file : war.career.pilotFiles)
        historic += file.joined;
    EXPECT_GT(historic, 700) << "of the 873 named pilots of the history";
    ASSERT_TRUE(war.session.save());
    const std::string saved = war.run.save();
    ASSERT_TRUE(war.session.load()) << war.session.problem().c_str();
    EXPECT_EQ(loadedCareerFaults(war.career), "");
    ASSERT_TRUE(war.session.save());
    EXPECT_TRUE(war.run.save() == saved) << "a saved career comes back whole";
    if (result != nullptr)
        *result = saved;
}

TEST(Wars, AreFoughtToTheirEndByTheFrench) {
    fightTheWar(101, {ServiceFrench, 1915, 12});
    fightTheWar(102, {ServiceFrench, 1916, 7});
    fightTheWar(103, {ServiceFrench, 1917, 4});
    fightTheWar(104, {ServiceFrench, 1918, 3});
}

TEST(Wars, AreFoughtToTheirEndByTheEnglish) {
    fightTheWar(201, {ServiceEnglish, 1915, 12});
    fightTheWar(202, {ServiceEnglish, 1916, 1});
    fightTheWar(203, {ServiceEnglish, 1917, 9});
    fightTheWar(204, {ServiceEnglish, 1918, 8});
}

TEST(Wars, AreFoughtToTheirEndByTheGermans) {
    fightTheWar(301, {ServiceGerman, 1915, 12});
    fightTheWar(302, {ServiceGerman, 1916, 12});
    fightTheWar(303, {ServiceGerman, 1917, 1, "Emil Kurz", "501011"});
}

// The record changes nothing, and its rows add up to the save's totals.
TEST(Wars, AreRecordedToTheLastVictory) {
    std::string saves[2];
    for (const bool recorded : {false, true}) {
        PinnedRun run(101);
        Session session(true, 0, recorded);
        tools::Finding finding;
        ASSERT_TRUE(standin::makeSimulatorFolder(run.simulatorFolder(), finding)) << finding.text();
        ASSERT_TRUE(session.newCareer({ServiceFrench, 1915, 12})) << session.problem().c_str();
        for (const int32_t day : {19160601, 19170601, 19181111})
            ASSERT_TRUE(session.until(day) && session.save()) << session.problem().c_str();
        saves[recorded] = run.save();
        if (!recorded)
            continue;
        SqliteFile record;
        ASSERT_TRUE(record.open(run.userFolder() + "/Saves/record.db", SqliteFile::MustExist));
        const Database& career = *Database::instance();
        std::vector<int32_t> victories(career.pilots.size());
        std::vector<int32_t> deaths(career.pilots.size());
        for (SqliteStatement row(record, "SELECT victor FROM victory"); row.next();)
            ++victories.at(static_cast<size_t>(row.integer(0)));
        for (SqliteStatement row(record, "SELECT pilot FROM posting WHERE kind = 'died'");
             row.next();)
            ++deaths.at(static_cast<size_t>(row.integer(0)));
        int32_t wrong = 0;
        for (size_t i = 0; i < career.pilots.size(); ++i)
            wrong += victories[i] != career.pilots[i].shotdowns ||
                     deaths[i] != (career.pilots[i].alive == 0 ? 1 : 0);
        EXPECT_EQ(wrong, 0) << "of " << career.pilots.size() << " pilots";
        EXPECT_GT(record.number("SELECT count(*) FROM victory"), 40000);
        EXPECT_GT(record.number("SELECT count(*) FROM flight"), 50);
        EXPECT_EQ(record.number("SELECT sum(kills) FROM flight"),
                  record.number("SELECT count(*) FROM victory JOIN flight ON flight.number ="
                                " victory.flight AND flight.pilot = victory.victor"));
        EXPECT_EQ(record.number("SELECT count(*) FROM flight WHERE NOT EXISTS (SELECT 1 FROM"
                                " flight_event WHERE flight = number AND x > 0)"),
                  0)
            << "each flight has a place";
        EXPECT_EQ(record.number("SELECT count(*) FROM (SELECT pilot FROM posting WHERE kind ="
                                " 'joined' GROUP BY pilot HAVING count(*) = 1)"),
                  static_cast<int64_t>(career.pilots.size()))
            << "everybody joins, and once";
        EXPECT_LT(std::filesystem::file_size(run.userFolder() + "/Saves/record.db"), 25000000U);
    }
    EXPECT_TRUE(saves[0] == saves[1]) << "the record changes the career";
}

TEST(Wars, FollowFromTheirSeed) {
    std::string first;
    std::string second;
    std::string other;
    fightTheWar(304, {ServiceGerman, 1918, 10}, &first);
    fightTheWar(304, {ServiceGerman, 1918, 10}, &second);
    fightTheWar(305, {ServiceGerman, 1918, 10}, &other);
    EXPECT_GT(first.size(), 500000U);
    EXPECT_TRUE(second == first) << "the second career of a process is another";
    EXPECT_FALSE(other == first);
}

} // namespace
