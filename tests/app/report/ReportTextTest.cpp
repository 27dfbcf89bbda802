#include "app/report/ReportText.h"

#include <gtest/gtest.h>

#include "app/career/GroundObjects.h"
#include "app/career/Wording.h"
#include "tests/support/Printers.h"

namespace {

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
    const ReportColumns columns = combatReportColumns(pilots, {});
    // A nameless record takes part in the decision, and isn't shown.
    EXPECT_EQ(described(columns.left),
              "you: Brandt - Kills: 0, Survived without injuries, Shotdown By: Hall\n"
              "machine gun on the ground - Kills: 0, No damage, \n");
    EXPECT_EQ(columns.note, "In the log you are \"Brandt\". Your orders don't name him: the flight "
                            "is not counted.");
    EXPECT_EQ(described(columns.right), "Hall - Kills: 2, No damage, \n"
                                        "Young - Kills: 0, No damage, \n"
                                        "what - Kills: 0, No damage, \n");
    EXPECT_EQ(described(combatReportColumns({}, {}).left), "");
    pilots[2].pilot = 7;
    pilots[2].shotdownBy = 4;
    EXPECT_EQ(combatReportColumns(pilots, {}).left[0].cause,
              "Shotdown By: machine gun on the ground");
    EXPECT_EQ(combatReportColumns(pilots, {}).note, "") << "the player is in the plan";
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
