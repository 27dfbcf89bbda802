#include "app/war/SquadronSimulator.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "engine/core/Registry.h"
#include "tests/support/Draws.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

TEST(SquadronSimulator, NamesUnitsByTheirNumber) {
    // clang-format off
    const std::pair<int32_t, const char*> names[] = {
        {-1, "(-1)"}, {0, "(0)"}, {101000, "(101000)"}, {101001, "Esc 1"}, {101227, "Esc 227"},
        {101228, "(101228)"}, {101900, "(101900)"}, {101901, "1eme Esc de Chasse"},
        {101903, "3eme Esc Observation"}, {101999, "99eme Esc de Chasse"}, {102000, "(102000)"},
        {102001, "No 1 Squadron RFC"}, {102100, "No 100 Squadron RFC"},
        {102101, "No 1 Squadron AFC"}, {102200, "No 100 Squadron AFC"},
        {102201, "No 1 Squadron RNAS"}, {102299, "No 99 Squadron RNAS"}, {102300, "(102300)"},
        {103000, "(103000)"}, {103001, "1th Aero"}, {103011, "11th Aero"}, {103012, "12th Aero"},
        {103021, "21st Aero"}, {103022, "22nd Aero"}, {103023, "23rd Aero"}, {103024, "24th Aero"},
        {103091, "91st Aero"}, {103101, "101th Aero"}, {103999, "999th Aero"}, {104000, "(104000)"},
        {501000, "(501000)"}, {501001, "Jasta 1"}, {501100, "Jasta 100"}, {501101, "Schlasta 1"},
        {501200, "Schlasta 100"}, {501201, "FA 1"}, {501300, "FA 100"},
        {501301, "Marine-Feldjagdstaffel 1"}, {501399, "Marine-Feldjagdstaffel 99"},
        {501400, "FA 200"}, {501500, "FA 300"}, {501501, "(501501)"}, {501600, "(501600)"},
        {501601, "SFL 1"}, {501700, "SFL 100"}, {501701, "(501701)"},
    };
    // clang-format on
    for (const auto& [id, name] : names) {
        EXPECT_EQ(SquadronSimulator::squadronDisplayName(id), name);
        EXPECT_EQ(SquadronSimulator::hasDisplayName(id), name[0] != '(') << id;
    }
}

TEST(SquadronSimulator, WeighsTheFiveBest) {
    const SmallWorld world;
    Database career;
    squadronOf(career, Germany, {14});
    squadronOf(career, Germany, {1, 4, 10, 2, 8, 6});
    emptySquadron(career, Germany);
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(0), 5.0F);
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(1),
                    (10 * 5 + 8 * 4 + 6 * 3 + 4 * 2 + 2 * 1) / 14.0F);
    EXPECT_EQ(SquadronSimulator::squadronStrength(2), 0);
    EXPECT_EQ(SquadronSimulator::squadronStrength(-1), 0);
    addFile(career, "501011", {});
    for (const auto& [file, number] : {std::pair{0, 501011}, {1, -1}, {-1, -1}})
        EXPECT_EQ(SquadronSimulator::squadronNumber(file), number);
    career.pilots[0].alive = 0; // a dead man's victories count until his slot is given away
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(0), 5.0F);
}

// The hash comes from a second reckoning of the rule, written apart from this program.
TEST(SquadronSimulator, GradesPilotsByTheRule) {
    std::string levels;
    for (int32_t skill = -1; skill <= 14; ++skill)
        for (int32_t shotdowns = 0; shotdowns <= 20; ++shotdowns)
            for (int32_t missions = 0; missions <= 90; ++missions)
                levels += std::to_string(SquadronSimulator::pilotLevel(skill, shotdowns, missions));
    EXPECT_EQ(hashOf(levels), 0xB232AA5CAD6FDF91U);
    // Some of them, reckoned by hand: skill, victories, missions, level.
    const int32_t cases[][4] = {
        {0, 0, 8, 2}, {6, 0, 1, 1}, {0, 2, 8, 3}, {0, 0, 75, 4}, {10, 5, 0, 4}};
    for (const auto& [skill, shotdowns, missions, level] : cases)
        EXPECT_EQ(SquadronSimulator::pilotLevel(skill, shotdowns, missions), level)
            << skill << ' ' << shotdowns << ' ' << missions;
}

struct Place {
    const char* name;
    float x, y, z;
};
constexpr Place Places[2][2][5] = {
    // the western front: Germans, Allies
    {{{"Lille", 253890.89F, 0.00F, 78627.34F},
      {"Cambrai", 200518.50F, 0.00F, 92959.45F},
      {"Cappy", 170749.75F, 1062.99F, 59543.51F},
      {"Metz", 85856.48F, 0.00F, 306784.62F}},
     {{"Arras", 213678.73F, 0.00F, 59607.41F},
      {"Amiens", 165563.03F, 1276.63F, 29702.08F},
      {"Reims", 94987.95F, 0.00F, 152875.84F},
      {"Verdun", 85641.22F, 0.00F, 246236.73F},
      {"Toul", 33006.23F, 0.00F, 288295.91F}}},
    // the Channel: Germans, Allies
    {{{"Zeebrugge", 106839.09F, 1000.00F, 229430.17F},
      {"Ostende", 105220.32F, 41.84F, 225402.80F},
      {"Roulers", 69558.71F, 62.60F, 234522.44F}},
     {{"Dunkerque", 78614.35F, 1050.25F, 173931.61F},
      {"Ypres", 60611.08F, 1000.00F, 206677.56F},
      {"St. Omer", 50427.86F, 1000.00F, 172919.00F}}},
};

/// Assigns a base to a squadron with the generator in a known state, and follows the draws.
/// `preference` is what the player's maps leave of the draw: -1 the draw, else the map.
void expectBase(Database& career, int32_t index, bool allied, bool mayDraw, int32_t preference,
                std::set<std::string>& seen) {
    zel::Random draws = zel::sharedRandom();
    SquadronSimulator::assignBase(index, allied, mayDraw);
    bool channel = mayDraw && draws.getInt(0, 4) == 0;
    if (preference >= 0)
        channel = preference == 1;
    const int32_t last = channel ? 2 : allied ? 4 : 3;
    const Place& place = Places[channel][allied][draws.getInt(0, last)];
    const Squadron& squadron = career.squadrons[static_cast<size_t>(index)];
    ASSERT_EQ(drawsBetween(draws, zel::sharedRandom()), 0) << "two draws, or one without the map's";
    ASSERT_EQ(squadron.onChannelMap, channel ? 1 : 0);
    ASSERT_STREQ(squadron.baseName, place.name);
    ASSERT_FLOAT_EQ(squadron.baseX, place.x) << place.name;
    ASSERT_FLOAT_EQ(squadron.baseY, place.y) << place.name;
    ASSERT_FLOAT_EQ(squadron.baseZ, place.z) << place.name;
    seen.insert(place.name);
}

TEST(SquadronSimulator, DrawsBasesFromTheTable) {
    const SmallWorld world;
    Database career;
    squadronOf(career, France, {0});
    squadronOf(career, Germany, {0});
    career.playerPilot = -1;
    std::set<std::string> seen;
    for (int32_t i = 0; i < 400; ++i)
        expectBase(career, i % 2, i % 2 == 0, i % 3 != 0, -1, seen);
    EXPECT_EQ(seen.size(), 15u) << "every place of the four groups";
    SquadronSimulator::assignBase(7, true, true); // there is no such squadron
}

TEST(SquadronSimulator, KeepsThePlayerOnHisMaps) {
    const SmallWorld world;
    Database career;
    squadronOf(career, France, {0});
    std::set<std::string> seen;
    const auto choose = [](const char* western, const char* channel) {
        zel::Registry::set("mapWestern", western);
        zel::Registry::set("mapChannel", channel);
    };
    for (const auto& [western, channel, preference] :
         {std::tuple{"1", "1", -1}, {"1", "0", 0}, {"0", "1", 1}, {"0", "0", 0}}) {
        choose(western, channel);
        for (int32_t i = 0; i < 60; ++i)
            expectBase(career, 0, true, i % 2 == 0, preference, seen);
    }

    // When he comes back to the hub: the map his base is on, and the one it is on then.
    for (const auto& [western, channel, before, after] : {std::tuple{"0", "1", 0, 1},
                                                          {"1", "0", 1, 0},
                                                          {"0", "0", 1, 0},
                                                          {"0", "0", 0, 0},
                                                          {"1", "1", 1, 1},
                                                          {"1", "0", 0, 0}}) {
        choose(western, channel);
        career.squadrons[0].onChannelMap = static_cast<uint8_t>(before);
        const zel::Random draws = zel::sharedRandom();
        SquadronSimulator::keepPlayerOnAllowedMap();
        EXPECT_EQ(career.squadrons[0].onChannelMap, after) << western << channel << before;
        EXPECT_EQ(drawsBetween(draws, zel::sharedRandom()), before != after ? 1 : 0);
    }
}

} // namespace
