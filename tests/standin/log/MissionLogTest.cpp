#include "standin/log/MissionLog.h"

#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "standin/fight/Dogfight.h"
#include "tests/standin/log/LogRules.h"
#include "tests/standin/mission/TestMission.h"

namespace standin {

namespace {

std::vector<std::string> logOf(const Mission& mission, uint32_t seed, FightOptions fight = {},
                               LogOptions options = {}) {
    options.missionName = "WingtallyMission";
    zel::Random random(seed);
    const FlightCourse flight = Dogfight(mission, fight, random).run();
    return writeLog(mission, flight, options, random);
}

const LogLine* lineOfType(const std::vector<LogLine>& lines, int32_t type) {
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const LogLine& line) { return line.type == type; });
    return found == lines.end() ? nullptr : &*found;
}

bool tellsOfGun(const std::vector<LogLine>& lines) {
    return std::any_of(lines.begin(), lines.end(), [](const LogLine& line) {
        return line.type == 12 &&
               (line.values.at("TYPE") == "LMG08AAA" || line.values.at("TYPE") == "HotchkissAAA");
    });
}

} // namespace

TEST(MissionLog, KeepsTheRulesOfTheSimulator) {
    const Mission air = readMission(missionText(sixPlanes()));
    const Mission ground = readMission(missionText(sixPlanes(), false));
    for (uint32_t seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        for (const Mission& mission : {air, ground}) {
            expectRules(logOf(mission, seed), true);
            const std::vector<std::string> killed = logOf(mission, seed, {true, false});
            expectRules(killed, true);
            EXPECT_TRUE(humanPartOf(linesOf(killed)).dead);
            const std::vector<std::string> wounded = logOf(mission, seed, {false, true});
            expectRules(wounded, true); // wounds of which nobody dies
            const HumanPart human = humanPartOf(linesOf(wounded));
            EXPECT_TRUE(!human.dead && human.wounds > 0) << human.wounds;
        }
        LogOptions brokenOff;
        brokenOff.breakOff = true;
        expectRules(logOf(air, seed, {}, brokenOff), false);
    }
}

TEST(MissionLog, WritesItsLinesAsTheSimulatorDoes) {
    const std::vector<LogLine> lines = linesOf(logOf(readMission(missionText(sixPlanes())), 1));
    EXPECT_EQ(lines[0].text,
              "T:0 AType:0 GDate:1918.3.21 GTime:9:7:0 MFile:Missions/WingtallyMission.mission "
              "MID: GType:0 CNTRS:0:0,101:1,102:1,103:1,501:2 "
              "SETTS:01010100100000010000000110 MODS:0 PRESET:0");
    const LogLine& start = *lineOfType(lines, 10);
    const std::string id = start.values.at("PLID");
    const LogLine& flight = *lineOfType(lines, 11);
    EXPECT_EQ(flight.values.at("LID"), id);
    EXPECT_EQ(flight.values.at("IDS").rfind(id + ",", 0), 0U) << "the leader comes first";
    EXPECT_EQ(std::count(flight.text.begin(), flight.text.end(), ','), 2) << "three planes";
    const LogLine& plane = *lineOfType(lines, 12);
    EXPECT_EQ(plane.text,
              "T:5 AType:12 ID:" + id + " TYPE:Fokker Dr.I COUNTRY:501 NAME:Erich Sommer/7 PID:-1");
    EXPECT_EQ(start.values.at("SKIN"), "fokkerdr1/some_skin.dds");
    EXPECT_EQ(start.values.at("FUEL"), "0.325");
    EXPECT_EQ(start.values.at("INAIR"), "1");
    EXPECT_EQ(start.values.at("BUL").substr(0, 4), "1000");
    EXPECT_NE(start.text.find(" RCT:0 (216000."), std::string::npos) << "a place without a name";
    EXPECT_EQ(lineOfType(lines, 5), nullptr) << "no take-off in the air";
}

TEST(MissionLog, DrawsFreshNumbersAndCutsNames) {
    const Mission mission = readMission(missionText(sixPlanes()));
    std::set<int32_t> planes;
    std::set<std::string> names;
    int32_t odd = 0;
    int32_t guns = 0;
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        const std::vector<LogLine> lines = linesOf(logOf(mission, seed));
        const HumanPart human = humanPartOf(lines);
        planes.insert(human.plane);
        odd += human.body != human.plane + 1024 ? 1 : 0;
        guns += tellsOfGun(lines) ? 1 : 0;
        for (const LogLine& line : lines)
            if (line.type == 12)
                names.insert(line.values.at("NAME"));
    }
    EXPECT_GT(planes.size(), 50U);
    EXPECT_TRUE(odd > 3 && odd < 30) << odd << ": a body's number isn't computed from its plane's";
    EXPECT_TRUE(guns > 2 && guns < 40) << guns << ": guns on the ground turn up now and then";
    EXPECT_EQ(names.count("Maximilian Freiherr von und zu "), 1U) << "31 characters, one a blank";
    EXPECT_EQ(names.count("John  O'Neil"), 1U);
}

TEST(MissionLog, ReportsObjectives) {
    std::string text =
        replaced(missionText(sixPlanes()), "# end of file", objectiveText(90) + "# end of file");
    text = replaced(text, "Targets = [3]", "Targets = [3,90]");
    const std::vector<std::string> pieces = logOf(readMission(text), 2);
    EXPECT_NE(pieces[0].find("T:150 AType:8 OBJID:90 POS(1.500,2.000,3.000) COAL:2 TYPE:0 RES:1 "
                             "ICTYPE:904\r\n"),
              std::string::npos)
        << pieces[0];
    expectRules(pieces, true);
}

TEST(MissionLog, StopsEarlyWhenAsked) {
    const Mission mission = readMission(missionText(sixPlanes()));
    LogOptions brokenOff;
    brokenOff.breakOff = true;
    LogOptions truncated;
    truncated.truncate = true;
    std::set<bool> finished; // of the truncated logs
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::vector<std::string> whole = logOf(mission, seed);
        const std::vector<LogLine> all = linesOf(whole);
        const std::vector<LogLine> lines = linesOf(logOf(mission, seed, {}, brokenOff));
        ASSERT_LT(lines.size(), all.size());
        for (size_t i = 0; i < lines.size(); ++i)
            ASSERT_EQ(lines[i].text, all[i].text);
        EXPECT_FALSE(humanPartOf(lines).dead);

        const std::vector<std::string> part = logOf(mission, seed, {}, truncated);
        ASSERT_EQ(part.size(), whole.size());
        EXPECT_TRUE(std::equal(part.begin(), part.end() - 1, whole.begin()));
        EXPECT_EQ(whole.back().rfind(part.back(), 0), 0U) << "the start of the whole piece";
        EXPECT_LT(part.back().size(), whole.back().size());
        EXPECT_EQ(std::string("\r\n").find(part.back().back()), std::string::npos)
            << "inside a line";
        finished.insert(humanPartOf(linesOf(part)).finished);
    }
    EXPECT_EQ(finished.size(), 2U) << "before the end lines and after them";
}

} // namespace standin
