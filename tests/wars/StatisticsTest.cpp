#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/mission/MissionGenerator.h"
#include "app/war/MissionSimulator.h"
#include "app/war/SquadronSimulator.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/PinnedRun.h"
#include "tests/support/WarDraws.h"

// The rules decide how many are shot down and how many die. One more reading of the same rules,
// with data of its own, gave the figures below over seven seeds: ours may differ by a tenth.

namespace {

/// What the unseen missions of a war came to.
struct Figures {
    double missions = 0;
    double shotDown = 0;
    double dead = 0;
    double ended = 0; // before the limit of their steps
    double steps = 0;
    double draws = 0; // of the steps
};

/// A fight, step by step, so that the steps can be counted.
void fight(MissionSimulator& simulator, int32_t limit, Figures& figures) {
    const uint64_t before = zel::Random::valuesMade();
    bool over = false;
    for (int32_t i = 0; i < limit && !over; ++i) {
        over = simulator.fightStep();
        ++figures.steps;
    }
    // In blocks of 624, which is little against the hundreds of thousands of a period's simulator.
    figures.draws += static_cast<double>(zel::Random::valuesMade() - before);
    figures.ended += over;
    ++figures.missions;
    for (const PilotReport& pilot : simulator.records()) {
        figures.shotDown += pilot.shotDown;
        figures.dead += pilot.dead;
    }
}

/// SquadronSimulator::advanceWar, put together from its parts in the order that they are to have.
void advanceAndCount(Database& career, MissionGenerator& generator, Figures& figures) {
    Calendar date = career.calendar();
    date.addDays(drawDays(career.year, zel::sharedRandom()));
    career.year = date.getYear();
    career.month = date.getMonth();
    career.day = date.getDay();
    career.activateSquadrons(career.year, career.month, career.day);

    MissionSimulator simulator;
    int32_t missions = zel::random(400, 750);
    if (career.year == 1915)
        missions = missions / 2;
    for (int32_t i = 0; i < missions; ++i) {
        generator.planMission(false);
        simulator.reset();
        simulator.loadPlan();
        const int32_t r1 = zel::random(10, 30000);
        const int32_t r2 = zel::random(10, r1);
        fight(simulator, zel::random(10, r2), figures);
        simulator.applyResult();
    }
    for (size_t i = 0; i < career.squadrons.size(); ++i)
        if (zel::random(0, 29) == 0)
            SquadronSimulator::assignBase(static_cast<int32_t>(i), career.squadrons[i].nation < 200,
                                          true);
    career.applyHistory();
}

/// A career of the English without flights of the player.
struct UnseenWar {
    explicit UnseenWar(uint32_t seed) : run(seed) {
        career.createCareer(ServiceEnglish);
        career.simulateToDate(1915, 12, 1);
    }
    PinnedRun run;
    Database career;
    MissionGenerator generator;
};

TEST(WarStatistics, AreCountedFromTheSameWar) {
    std::string saves[2];
    for (const bool counted : {false, true}) {
        UnseenWar war(5);
        Figures figures;
        for (int32_t period = 0; period < 12; ++period) {
            if (counted)
                advanceAndCount(war.career, war.generator, figures);
            else
                SquadronSimulator::advanceWar();
        }
        EXPECT_TRUE(war.career.storeFile(SaveFileName));
        saves[counted] = war.run.save();
    }
    EXPECT_GT(saves[0].size(), 500000u);
    EXPECT_TRUE(saves[0] == saves[1]) << "a period of the war has other steps than were counted";
}

/// Seven wars. Checks what a mission comes to; returns the mean of their best pilots' victories.
double checkSevenWars() {
    Figures figures;
    double best = 0;
    for (uint32_t seed = 1; seed <= 7; ++seed) {
        UnseenWar war(seed);
        while (war.career.calendar().dateNumber() < 19181111)
            advanceAndCount(war.career, war.generator, figures);
        EXPECT_EQ(careerFaults(war.career), "");
        EXPECT_GE(war.career.pilots.size(), 55000 * 0.9);
        EXPECT_LE(war.career.pilots.size(), 62000 * 1.1);
        best += std::max_element(
                    war.career.pilots.begin(), war.career.pilots.end(),
                    [](const Pilot& a, const Pilot& b) { return a.shotdowns < b.shotdowns; })
                    ->shotdowns /
                7.0;
    }
    const struct {
        const char* what;
        double measured, least, most;
    } cases[] = {
        {"shot down per mission", figures.shotDown / figures.missions, 1.30, 1.36},
        {"deaths per mission", figures.dead / figures.missions, 1.12, 1.16},
        {"fights ended before their limit", figures.ended / figures.missions, 0.33, 0.34},
        {"steps per mission", figures.steps / figures.missions, 2160, 2160},
        {"draws per step", figures.draws / figures.steps, 2.77, 2.81},
    };
    for (const auto& [what, measured, least, most] : cases) {
        testing::Test::RecordProperty(what, std::to_string(measured));
        EXPECT_TRUE(measured >= least * 0.9 && measured <= most * 1.1) << what << ": " << measured;
    }
    testing::Test::RecordProperty("best pilot", std::to_string(best));
    return best;
}

/// A folder with the delivered name lists and no history, as the current one.
struct GeneratedWorld {
    GeneratedWorld() {
        std::filesystem::copy("Data/Names", folder.file("Data/Names"));
        std::filesystem::current_path(folder.path());
    }
    ~GeneratedWorld() { std::filesystem::current_path(before); }
    const std::filesystem::path before = std::filesystem::current_path();
    TemporaryFolder folder;
};

// A third of the squadrons is German, so each of them meets the Allies twice as often as these.
TEST(WarStatistics, AreThoseOfTheRules) {
    const GeneratedWorld world;
    const double best = checkSevenWars();
    EXPECT_TRUE(best >= 96 && best <= 134) << best << " victories of the best pilot";
}

// History has nearly as many German squadrons as Allied ones: the same missions are spread over
// more of them, and nobody comes to as many victories.
TEST(WarStatistics, HoldForTheDeliveredHistory) {
    const double best = checkSevenWars();
    EXPECT_TRUE(best >= 70 && best <= 110) << best << " victories of the best pilot";
}

} // namespace
