#include "app/war/Enlistment.h"

#include <gtest/gtest.h>

#include "app/career/Bases.h"
#include "app/career/CareerObserver.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Registry.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/Draws.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallCareer.h"

namespace {

struct EnlistmentTest : testing::Test {
    EnlistmentTest() {
        world.addHistory();
        world.pin(career);
        career.createCareer(ServiceGerman);
    }
    SmallWorld world;
    LogCapture lines;
    Database career;
};

TEST_F(EnlistmentTest, AcceptsNamesThatTheLogCanCarry) {
    const std::string longest(31, 'x');
    const std::pair<std::string, NameFault> names[] = {
        {"Sean O'Neill-Brown Jr., 2nd", NameFault::None},
        {" J\xFCrgen \xD8sterby\x92s ", NameFault::None},
        {longest, NameFault::None},
        {longest + " ", NameFault::None},
        {longest + "x", NameFault::TooLong},
        {"", NameFault::Empty},
        {"  ", NameFault::Empty},
        {"Hans/12", NameFault::Character},
        {"Hans \"Ace\" Meier", NameFault::Character},
        {"\x93Hans\x94", NameFault::Character},
        {"PID:3", NameFault::Character},
        {"Hans\tMeier", NameFault::Character},
        {"Hans\x81", NameFault::Character},
        {"KARL falke", NameFault::OfAce},
        {"Ren\xE9 Petit", NameFault::OfPilot},
    };
    for (const auto& [name, fault] : names)
        EXPECT_EQ(checkPilotName(career, name).fault, fault) << name;
    EXPECT_EQ(checkPilotName(career, "Ren\xE9 Petit").bearer, "Rene Petit");
    EXPECT_EQ(checkPilotName(career, zel::arrayText(career.player().name)).fault, NameFault::None)
        << "his own, though others have it in this small world";
}

// All six names of the nation are taken.
TEST_F(EnlistmentTest, DrawsOtherNamesOnTheSide) {
    const zel::Random before[] = {career.random, zel::sharedRandom()};
    zel::Random names(5);
    EXPECT_EQ(drawAnotherName(career, names), zel::arrayText(career.player().name));
    career.lastNames[2].lines.push_back("Neumann");
    const zel::String other = drawAnotherName(career, names);
    EXPECT_NE(other.view().find(" Neumann"), std::string_view::npos) << other.c_str();
    EXPECT_EQ(drawsBetween(before[0], career.random), 0);
    EXPECT_EQ(drawsBetween(before[1], zel::sharedRandom()), 0);
}

struct BeginningSeen : CareerObserver {
    void onCareerBegun(const Database& career) override {
        pilot = zel::arrayText(career.player().name);
        squadron = career.player().squadron;
    }
    std::string pilot;
    int32_t squadron = -1;
};

TEST_F(EnlistmentTest, PutsThePlayerIntoTheSquadronOfHisChoice) {
    constexpr int32_t Jasta = 2; // by the file
    zel::Registry::set("mapWestern", "0");
    Squadron& chosen = career.squadron(Jasta);
    ASSERT_EQ(zel::arrayText(chosen.key), "501002");
    chosen.onChannelMap = 0;
    const zel::String base = baseForPlayer(career, Jasta);
    constexpr int32_t Generated = 5; // the first one of his nation
    ASSERT_EQ(career.squadron(Generated).nation, Germany);
    career.playerPilot = career.squadron(Generated).slots[0];
    const int32_t other = chosen.slots[0];
    BeginningSeen seen;
    career.observer = &seen;
    MissionGenerator generator;
    const MissionGenerator later;
    beginService(career, generator, {" Emil Kurz ", Jasta}, 1916, 2);
    EXPECT_TRUE(later.plan.empty()) << "the war is fought with the generator that it is given";
    EXPECT_EQ(seen.pilot, "Emil Kurz");
    EXPECT_EQ(seen.squadron, Jasta);
    EXPECT_EQ(zel::arrayText(career.player().name), "Emil Kurz");
    EXPECT_EQ(career.player().squadron, Jasta);
    EXPECT_EQ(career.pilot(other).squadron, Generated) << "whose place he has";
    EXPECT_EQ(zel::arrayText(chosen.baseName), base.view());
    EXPECT_EQ(chosen.onChannelMap, 1) << "where he can fly";
    EXPECT_EQ(chosen.active, 1);
    EXPECT_GE(career.calendar().dateNumber(), 19160201);
    EXPECT_EQ(careerFaults(career), "");
}

} // namespace
