#include "app/mission/DailyMission.h"

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "app/career/Aircraft.h"
#include "app/mission/Configuration.h"
#include "engine/core/Registry.h"
#include "standin/mission/MissionReader.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"
#include "tests/support/Texts.h"

namespace {

/// A career with the delivered template and a simulator's folder.
struct DailyCareer {
    explicit DailyCareer(int32_t service = ServiceFrench) {
        world.folder.write(MissionTemplateFile, deliveredTemplate);
        world.folder.file("sim/data/Missions/x"); // makes the folder
        Configuration::reset();
        Configuration::set("rof.directory", world.folder.path() + "/sim");
        world.addSquadron("101003", "date=19151101 aircraft=nieuport11 skin=stork.dds\n");
        world.addSquadron("501002", "date=19151115 aircraft=fokkere3 skin=grey.dds\n");
        career.createCareer(service);
    }
    ~DailyCareer() { Configuration::reset(); }
    DailyMission write() { return writeDailyMission(career, generator); }
    std::string text() const {
        return world.folder.read(std::string("sim/data/Missions/") + MissionFileName);
    }

    // Read before the world takes the run folder away.
    std::string deliveredTemplate = fileText(MissionTemplateFile);
    SmallWorld world;
    LogCapture lines{zel::LogError};
    Database career;
    MissionGenerator generator;
};

// Read by the strict reader of another program, which refuses doubled indices, pairs that don't
// fit, unknown types and two planes on one spot.
TEST(DailyMission, IsOneThatTheSimulatorWouldLoad) {
    for (const int32_t service : {ServiceFrench, ServiceEnglish, ServiceGerman}) {
        DailyCareer test(service);
        for (int32_t i = 0; i < 108 && !HasFailure(); ++i) {
            setDate(test.career, 1915 + (i + 33) / 36, i % 12 + 1, i % 28 + 1);
            test.career.playerSquadron().onChannelMap = i % 5 == 0 ? 1 : 0;
            const DailyMission today = test.write();
            ASSERT_EQ(today.problem, "");
            const std::string text = test.text();
            standin::Mission mission;
            tools::Finding finding;
            ASSERT_TRUE(standin::readMissionText(text, mission, finding)) << finding.text() << "\n"
                                                                          << text;
            EXPECT_EQ(mission.year * 10000 + mission.month * 100 + mission.day,
                      test.career.calendar().dateNumber());
            EXPECT_TRUE(mission.hour >= 8 && mission.hour <= 17);
            EXPECT_EQ(mission.human, int32_t(mission.planes.size()) - 1) << "the player comes last";
            EXPECT_EQ(mission.planes.size(), test.generator.plan.size());
        }
    }
}

TEST(DailyMission, ShowsThePlayersFlight) {
    DailyCareer test(ServiceGerman);
    const DailyMission today = test.write();
    EXPECT_EQ(today.file,
              test.world.folder.path() + "/sim\\data\\Missions\\WingtallyMission.Mission");
    ASSERT_FALSE(today.roster.empty());
    EXPECT_EQ(today.roster[0],
              zel::String(zel::arrayText(test.career.player().name)) + " (Fokker E. III)");
    int32_t countrymen = 0;
    for (const PlannedPlane& plane : test.generator.plan)
        countrymen += plane.nation == Germany;
    EXPECT_EQ(static_cast<int32_t>(today.roster.size()), countrymen) << "the enemy doesn't show";
    EXPECT_EQ(startLabel(today), "Start Mission");
    ASSERT_EQ(today.planes.size(), today.roster.size());
    EXPECT_EQ(today.planes[0].pilot, test.career.playerPilot);
    EXPECT_NE(test.text().find("Time = " + std::to_string(today.sky.hour) + ":" +
                               std::to_string(today.sky.minute) + ":0;"),
              std::string::npos);
    EXPECT_LE(std::abs(today.fightX - test.career.playerSquadron().baseX), 20000);
    EXPECT_LE(std::abs(today.fightZ - test.career.playerSquadron().baseZ), 20000);

    for (const zel::String& type : planeIdentifiers())
        zel::Registry::set(type, "0");
    EXPECT_EQ(startLabel(test.write()), "Skip Mission (no flyable plane available)");
}

TEST(DailyMission, HasHourSkyAndWindOfItsFile) {
    EntireFile mission;
    for (const char* line :
         {"Options", "{", "  Time = 17:5:0;", "  CloudConfig = \"clear\\sky.ini\";", "  WindLayers",
          "  {", "    0 :     0 :     0;", "    500 :  90 : 9;", "  }", "}", "MCU_Timer", "{",
          "  Time = 3:4:5;", "}"})
        mission.lines.emplace_back(line);
    EXPECT_EQ(skyText(skyOf(mission)), "At 17:05 the sky is clear and the air is calm.");
    mission.lines[3] = "  CloudConfig = \"AverageFog\\sky.ini\";";
    EXPECT_EQ(skyText(skyOf(mission)), "At 17:05 there is mist, and the air is calm.");
    mission.lines[6] = "    0 :     270 :     5;";
    EXPECT_EQ(skyText(skyOf(mission)),
              "At 17:05 there is mist, with a wind of 5 m/s from 270 degrees.");
}

// The offsets move it as a whole; nothing else differs between the first and the second writing.
TEST(DailyMission, IsTheSameAllDay) {
    DailyCareer test;
    setDate(test.career, 1917, 8, 9);
    const auto withoutPlaces = [&] {
        EXPECT_EQ(test.write().problem, "");
        std::istringstream stream(test.text());
        std::string rest;
        for (std::string line; std::getline(stream, line);)
            if (line.find("XPos") == line.npos && line.find("ZPos") == line.npos)
                rest += line;
        return rest;
    };
    const std::string first = withoutPlaces();
    const std::string firstText = test.text();
    EXPECT_EQ(withoutPlaces(), first);
    EXPECT_NE(test.text(), firstText);
    test.career.day = 10;
    EXPECT_NE(withoutPlaces(), first);
}

TEST(DailyMission, SaysWhyThereIsNone) {
    const auto problemOf = [](const char* what, auto spoil) {
        DailyCareer test;
        spoil(test);
        const DailyMission today = test.write();
        EXPECT_NE(std::string(today.problem.c_str()).find(what), std::string::npos)
            << today.problem.c_str();
        EXPECT_EQ(test.lines.linesWith("[MissionGenerator] " + std::string(today.problem.c_str())),
                  1);
        EXPECT_EQ(test.text(), "");
    };
    problemOf("can't be written to", [](DailyCareer& test) {
        std::filesystem::remove_all(test.world.folder.path() + "/sim/data");
    });
    problemOf("template can't be read", [](DailyCareer& test) {
        std::filesystem::remove(test.world.folder.path() + "/" + MissionTemplateFile);
    });
    problemOf("template has no attack area", [](DailyCareer& test) {
        test.world.folder.write(MissionTemplateFile, "Options\n{\n}\n");
    });
    problemOf("No mission can be planned", [](DailyCareer& test) {
        for (Squadron& squadron : test.career.squadrons)
            squadron.nation = France;
    });
}

} // namespace
