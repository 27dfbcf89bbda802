#include "app/report/ReportText.h"

#include <tuple>

#include <gtest/gtest.h>

#include "app/career/GroundObjects.h"
#include "app/career/Wording.h"
#include "tests/support/Printers.h"

namespace {

// Only where one text ends and the next begins, and what overrides what.
TEST(ReportText, ReportsThePilotsFate) {
    const struct {
        int32_t killed, dead, percent;
        float damage;
        int32_t status, by;
        const char* text;
    } cases[] = {
        {2, 0, 0, 0, 0, -1, "Died in the air"},
        {0, 1, 98, 1, 1, 0, "Crashed and died"},
        {0, 0, 51, 1, 1, 0, "Severe injuries"},
        {0, 0, 50, 1, 1, 0, "Injured"},
        {0, 0, 26, 0, 0, -1, "Injured"},
        {0, 0, 25, 1, 1, 0, "Slightly injured"},
        {0, 0, 0, 0.49F, 1, 0, "Landed with damaged plane"},
        {0, 0, 0, 0.5F, 1, 0, "Landed with destroyed plane"},
        {0, 0, 0, 0.01F, 2, 0, "Damaged plane"},
        {0, 0, 0, 0.5F, 0, -1, "Destroyed plane"},
        {0, 0, 0, 0.009F, 1, 0, "Escaped and landed"},
        {0, 0, 0, 0.009F, 2, 0, "Survived without injuries"},
        {0, 0, 0, -0.7F, 2, -1, "No damage"},
    };
    for (const auto& [killed, dead, percent, damage, status, by, text] : cases) {
        PilotReport pilot;
        pilot.killCount = killed;
        pilot.dead = dead;
        pilot.injuryPercent = percent;
        pilot.damage = damage;
        pilot.flightStatus = status;
        pilot.shotdownBy = by;
        EXPECT_EQ(fateText(pilot), text) << percent << ' ' << damage << ' ' << status;
    }
}

TEST(ReportText, ReportsTheCause) {
    std::vector<PilotReport> pilots(2);
    pilots[0].name = "Friend";
    pilots[1].name = "Enemy/7";
    for (const auto& [shotDown, by, own, text] : {std::tuple{0, 1, 0, ""},
                                                  {1, 1, 0, "Killed By: Enemy/7"},
                                                  {1, -1, 0, "Killed By Own: Friend"},
                                                  {1, -1, -1, "Crashed"}}) {
        PilotReport pilot;
        pilot.shotDown = shotDown;
        pilot.shotdownBy = by;
        pilot.shotdownByOwn = own;
        pilot.dead = 1;
        EXPECT_EQ(causeText(pilot, pilots), text);
    }
}

/// The entries of a column, a line each.
std::string described(const std::vector<ReportEntry>& column) {
    std::string text;
    for (const ReportEntry& entry : column)
        text += std::string(entry.isPlayer ? "you: " : "") + entry.pilot.c_str() + ", " +
                entry.fate.c_str() + ", " + entry.cause.c_str() + "\n";
    return text;
}

TEST(ReportText, PutsTheFirstRecordsSideLeft) {
    const std::pair<const char*, int32_t> records[] = {
        {"", 501}, {"Hall", 102}, {"Brandt", 501}, {"Young", 103}, {"gun", 501}, {"what", 0}};
    std::vector<PilotReport> pilots;
    for (const auto& [name, country] : records) {
        pilots.emplace_back();
        pilots.back().name = name;
        pilots.back().country = country;
    }
    pilots[1].kills = {2, 4};
    pilots[2].human = 1;
    pilots[2].shotDown = 1;
    pilots[2].shotdownBy = 1;
    pilots[4].type = "LMG08AAA";
    const ReportColumns columns = combatReportColumns(pilots);
    // A nameless record decides, and isn't shown.
    EXPECT_EQ(described(columns.left),
              "you: Brandt - Kills: 0, Survived without injuries, Shotdown By: Hall\n"
              "machine gun on the ground - Kills: 0, No damage, \n");
    EXPECT_EQ(columns.note, "In the log you are \"Brandt\". Your orders don't name him: the flight "
                            "is not counted.");
    EXPECT_EQ(described(columns.right), "Hall - Kills: 2, No damage, \n"
                                        "Young - Kills: 0, No damage, \n"
                                        "what - Kills: 0, No damage, \n");
    EXPECT_EQ(described(combatReportColumns({}).left), "");
    pilots[2].pilot = 7;
    pilots[2].shotdownBy = 4;
    EXPECT_EQ(combatReportColumns(pilots).left[0].cause, "Shotdown By: machine gun on the ground");
    EXPECT_EQ(combatReportColumns(pilots).note, "") << "the player is in the plan";
}

TEST(ReportText, CallsObjectsOnTheGroundWhatTheyAre) {
    for (const auto& [type, name] : {std::pair{"hotchkissaaa", "machine gun on the ground"},
                                     {"LMG08", "machine gun on the ground"},
                                     {"77mmAAA", "anti-aircraft fire"},
                                     {"Benz_Searchlight", "searchlight"},
                                     {"benz_soft", "lorry"},
                                     {"Mk4F", "tank"},
                                     {"LMG", ""},
                                     {"AAA gun", ""},
                                     {"Albatros D.II", ""},
                                     {"", ""}}) {
        const Wording* ground = groundObject(type);
        EXPECT_STREQ(ground != nullptr ? ground->english : "", name) << type;
    }
}

} // namespace
