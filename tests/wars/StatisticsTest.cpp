#include <filesystem>
#include <tuple>

#include <gtest/gtest.h>

#include "app/career/CareerTexts.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/WarAdvance.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/PinnedRun.h"

// The rules decide how many are shot down and how many die. An independent implementation of the
// same rules, with its own data, gave the figures below over seven seeds; ours may differ by a
// tenth.

namespace {

/// The results of the wars' unseen missions.
struct Figures : WarObserver {
    void onWarProgress(const Calendar& /*date*/, float /*share*/) override { ++missions; }
    /// Adds the victories and deaths of a career; `sign` -1 subtracts them.
    void add(const Database& career, double sign) {
        for (const Pilot& pilot : career.pilots) {
            shotDown += sign * pilot.shotdowns;
            dead += pilot.alive == 0 ? sign : 0;
        }
    }

    double missions = 0;
    double shotDown = 0;
    double dead = 0;
};

/// Seven English wars without flights of the player. Checks the results per mission; returns the
/// mean of the best pilots' victories.
double checkSevenWars() {
    Figures figures;
    double best = 0;
    for (uint32_t seed = 1; seed <= 7; ++seed) {
        const PinnedRun run(seed);
        Database career;
        MissionGenerator generator;
        career.createCareer(ServiceEnglish);
        career.simulateToDate(1915, 12, 1);
        figures.add(career, -1);
        setWarObserver(&figures);
        while (career.calendar().dateNumber() < 19181111)
            advanceWar(career, &generator);
        setWarObserver(nullptr);
        figures.add(career, 1);
        EXPECT_EQ(careerFaults(career), "");
        EXPECT_GE(career.pilots.size(), 55000 * 0.9);
        EXPECT_LE(career.pilots.size(), 62000 * 1.1);
        best += career.pilots[size_t(bestPilots(career.pilots, 1).at(0))].shotdowns / 7.0;
    }
    const std::tuple<const char*, double, double, double> cases[] = {
        {"shot down per mission", figures.shotDown / figures.missions, 1.30, 1.36},
        {"deaths per mission", figures.dead / figures.missions, 1.12, 1.16},
    };
    for (const auto& [what, measured, least, most] : cases)
        EXPECT_TRUE(measured >= least * 0.9 && measured <= most * 1.1) << what << ": " << measured;
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

// A third of the squadrons are German, so each of them meets the Allies twice as often as an Allied
// one meets Germans.
TEST(WarStatistics, AreThoseOfTheRules) {
    const GeneratedWorld world;
    const double best = checkSevenWars();
    EXPECT_TRUE(best >= 96 && best <= 134) << best << " victories of the best pilot";
}

// History has nearly as many German squadrons as Allied ones: the same missions are spread over
// more of them, so nobody gets as many victories.
TEST(WarStatistics, HoldForTheDeliveredHistory) {
    const double best = checkSevenWars();
    EXPECT_TRUE(best >= 70 && best <= 110) << best << " victories of the best pilot";
}

} // namespace
