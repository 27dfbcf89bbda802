#include <sstream>

#include <gtest/gtest.h>

#include "app/report/CombatReport.h"
#include "tests/app/report/FlightLog.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// A report that reads pieces out of a folder, with the flight's plan.
struct ReportRulesTest : testing::Test {
    ReportRulesTest() { generator.plan = flightPlan(); }

    void writePieces(const std::string& base, const char* lineEnd = "\r\n") const {
        int32_t number = 0;
        for (const std::string& piece : FlightPieces)
            folder.write(base + "[" + std::to_string(number++) + "].txt",
                         replacedAll(piece, "\n", lineEnd));
    }
    bool read(const std::string& base) {
        const zel::String name(base.substr(base.find('/') + 1) + "[0].txt");
        return report.readMission(
            zel::String(folder.path() + "/" + base.substr(0, base.find('/')) + "\\"), name);
    }
    /// Reads a log of these lines. Sets `isOver`.
    const std::vector<PilotReport>& readLines(const std::vector<std::string>& text) {
        report.clear();
        for (const std::string& line : text)
            report.lines.add(line);
        isOver = report.analyse();
        return report.pilots;
    }

    TemporaryFolder folder;
    LogCapture lines;
    MissionGenerator generator;
    CombatReport report;
    bool isOver = false; // of the lines read last
};

/// "name, type: plane and body, the career's pilot, flight status; kills by whom dead".
std::string described(const PilotReport& p) {
    std::ostringstream text;
    text << p.name.c_str() << ", " << p.type.c_str() << ": " << p.planeId << ' ' << p.bodyId << ", "
         << p.pilot << ", " << p.flightStatus << "; " << p.kills.size() << ' ' << p.shotdownBy
         << ' ' << p.dead << '\n';
    return text.str();
}

TEST_F(ReportRulesTest, ReportsTheFlight) {
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        writePieces("data/missionReport(2018-01-01_10-00-00)", lineEnd);
        ASSERT_TRUE(read("data/missionReport(2018-01-01_10-00-00)"));
        ASSERT_EQ(report.lines.lineCount(), 7 + 8 + 1 + 13);
        std::string all;
        for (const PilotReport& pilot : report.pilots)
            all += described(pilot);
        ASSERT_EQ(all, "Erich Sommer/7, Fokker Dr.I: 20479 21503, 10, 1; 1 -1 0\n"
                       "Albert Reed, Sopwith Camel: 36863 37887, 12, 0; 0 0 0\n"
                       "Ernest M. Hall/11, Sopwith Camel: 45055 46079, 13, 0; 1 -1 0\n"
                       "Kurt Brandt, Fokker Dr.I: 28671 29695, 11, 0; 0 2 1\n"
                       "lmg08aaa, LMG08AAA: 37888 -1, -1, 0; 0 -1 0\n");
        const PilotReport& sommer = report.pilots[0];
        EXPECT_TRUE(sommer.human == 1 && sommer.finished == 1 && sommer.injuryPercent == 25);
        EXPECT_EQ(sommer.hitTargets, (std::vector<int32_t>{1, 1, 1, 1}));
        EXPECT_EQ(sommer.hitBy, (std::vector<int32_t>{2, 4}));
        EXPECT_FLOAT_EQ(report.pilots[1].damage, 0.993F);
        EXPECT_FLOAT_EQ(report.pilots[1].injury, 0.25F);
        const PilotReport& brandt = report.pilots[3];
        EXPECT_TRUE(brandt.skill == 2 && brandt.shotdowns == 0 && brandt.missions == 3);
        EXPECT_EQ(brandt.plannedName, "Kurt Brandt");
    }
    EXPECT_TRUE(lines.holds("MISSION FINISHED: 1\nMATCHING PILOTS: 4\n"));
    EXPECT_TRUE(lines.holds("MAPPING FOR Kurt Brandt TO 11 SUCCESSFUL\n"));
}

// The bracket is the file name's own, and a gap ends the log.
TEST_F(ReportRulesTest, JoinsThePiecesUpToTheFirstGap) {
    writePieces("sim [7] [0]/missionReport(x)");
    EXPECT_TRUE(read("sim [7] [0]/missionReport(x)"));
    EXPECT_EQ(report.lines.lineCount(), 29);
    folder.write("sim [7] [0]/missionReport(x)[5].txt", "T:0 AType:15 VER:18\n");
    EXPECT_TRUE(read("sim [7] [0]/missionReport(x)"));
    EXPECT_EQ(report.lines.lineCount(), 29) << "[4] is missing";

    EXPECT_FALSE(read("sim [7] [0]/other"));
    folder.write("data/lone[0].txt", FlightPieces[0]);
    EXPECT_FALSE(read("data/lone")) << "the flight goes on";
    EXPECT_EQ(report.lines.lineCount(), 7);
    folder.write("data/bare.txt", FlightPieces[0]);
    EXPECT_FALSE(report.readMission(zel::String(folder.path() + "/data/"), "bare.txt"));
}

// The mission is finished as soon as the log has the end of the player's body.
TEST_F(ReportRulesTest, ReadsALogWhereverItEnds) {
    std::string all;
    for (const std::string& piece : FlightPieces)
        all += piece;
    const std::string end = "AType:16 BOTID:21503";
    const size_t finished = all.find(end) + end.size();
    for (size_t length = 0; length <= all.size(); ++length) {
        std::istringstream cut(all.substr(0, length));
        std::vector<std::string> text;
        for (std::string line; std::getline(cut, line);)
            text.push_back(line);
        ASSERT_LE(readLines(text).size(), 5u);
        ASSERT_EQ(isOver, length >= finished) << "cut at " << length;
    }
}

/// Lines of a log. A plane of that id has its pilot's body at id + 1000.
std::string plane(int32_t id, int32_t country) {
    return "T:1 AType:12 ID:" + std::to_string(id) + " TYPE:X COUNTRY:" + std::to_string(country) +
           " NAME:P" + std::to_string(id) + " PID:-1";
}
std::string body(int32_t plane) {
    return "T:1 AType:12 ID:" + std::to_string(plane + 1000) +
           " TYPE:Common Bot COUNTRY:0 NAME: PID:" + std::to_string(plane);
}
std::string event(int32_t type, int32_t attacker, int32_t target, const char* damage = "") {
    return "T:1 AType:" + std::to_string(type) + " DMG:" + damage +
           " AID:" + std::to_string(attacker) + " TID:" + std::to_string(target);
}
std::string fall(int32_t target) { return event(3, -1, target); }

TEST_F(ReportRulesTest, TakesUpObjectsOnce) {
    const auto& pilots = readLines({plane(1, 101), body(1), plane(1, 501), body(2),
                                    "T:1 AType:12 ID:7 TYPE:Gun COUNTRY:501 NAME:gun PID:1"});
    ASSERT_EQ(pilots.size(), 1u);
    EXPECT_EQ(pilots[0].country, 101);
    EXPECT_EQ(pilots[0].bodyId, 7) << "the last child is the pilot";
    EXPECT_TRUE(lines.holds(" w ")) << lines.text();
    EXPECT_TRUE(lines.holds("[CombatReport] Plane with ID 2 was not found\n"));
    EXPECT_EQ(report.findByObject(7), 0);
    EXPECT_EQ(report.findByObject(1001), -1);
    EXPECT_EQ(report.findByObject(-1), -1) << "also when no body is known";
    EXPECT_TRUE(report.isBody(7));
    EXPECT_FALSE(report.isBody(1) || report.isBody(-1) || report.isBody(99));
}

TEST_F(ReportRulesTest, FollowsTheFlight) {
    const auto& pilots =
        readLines({plane(1, 101), body(1), plane(2, 101), plane(3, 101), "T:1 AType:5 PID:1",
                   "T:1 AType:5 PID:2", "T:2 AType:6 PID:2", "T:2 AType:6 PID:99",
                   "T:2 AType:10 PLID:1 PID:1001", "T:2 AType:16 BOTID:1001",
                   "T:3 AType:16 BOTID:-1", "T:3 AType:14 PID:3", "T:3 PID:3"});
    const int32_t expected[][3] = {{2, 1, 1}, {1, 0, 0}, {0, 0, 0}};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(pilots[i].flightStatus, expected[i][0]) << i;
        EXPECT_EQ(pilots[i].human, expected[i][1]) << i;
        EXPECT_EQ(pilots[i].finished, expected[i][2]) << i;
    }
}

TEST_F(ReportRulesTest, AddsUpDamageAndWounds) {
    const auto& pilots =
        readLines({plane(1, 101), body(1), plane(2, 501), event(2, 2, 1, "0.25"),
                   event(2, 2, 1, "0.5"), event(2, 2, 1001, "0.125"), event(1, 2, 1001),
                   event(2, -1, 1, "-1.#QO"), event(2, 99, 1, "junk"), event(2, 1, 99, "1"),
                   event(1, 1, -1), event(3, 1, 99), event(3, -1, -1)});
    EXPECT_FLOAT_EQ(pilots[0].damage, 0.25F + 0.5F - 1);
    EXPECT_FLOAT_EQ(pilots[0].injury, 0.125F);
    EXPECT_EQ(pilots[0].hitBy, (std::vector<int32_t>{1, 1, 1, 1}));
    EXPECT_EQ(pilots[1].hitTargets, (std::vector<int32_t>{0, 0, 0, 0}));
    EXPECT_TRUE(pilots[0].hitTargets.empty()) << "a target without a record isn't kept";
    EXPECT_TRUE(pilots[0].kills.empty() && pilots[0].shotDown == 0);
}

// Plane 1 and 2 are Frenchmen, 3 and 4 Germans; they are the records 0 to 3.
TEST_F(ReportRulesTest, CreditsVictories) {
    const struct {
        const char* what;
        std::vector<std::string> events;
        int32_t by, own; // to whom plane 1 falls
    } cases[] = {
        {"the attacker named", {event(2, 4, 1, "1"), event(3, 3, 1)}, 2, -1},
        {"the last to hit, for want of a name", {event(1, 4, 1), event(1, 3, 1), fall(1)}, 2, -1},
        {"the last to hit the pilot", {event(1, 3, 1), event(1, 4, 1001), fall(1)}, 3, -1},
        {"who hit him who did it himself", {event(1, 3, 1), event(3, 1, 1)}, 2, -1},
        {"nobody", {fall(1)}, -1, -1},
        {"a friend counts for nothing", {event(3, 2, 1)}, -1, 1},
        {"a friend, and an enemy who hit later", {event(3, 2, 1), event(1, 3, 1)}, 2, 1},
        {"a friend who hit last", {event(1, 3, 1), event(1, 2, 1), fall(1)}, -1, 1},
        {"the first of two reports", {event(3, 3, 1), event(3, 4, 1)}, 2, -1},
        {"the second, if the first named nobody", {fall(1), event(3, 4, 1)}, 3, -1},
        {"the attacker of the body", {event(3, 4, 1001)}, 3, -1},
        {"nobody for a hit alone", {event(2, 3, 1, "0.9")}, -1, -1},
    };
    for (const auto& [what, events, by, own] : cases) {
        std::vector<std::string> text = {plane(1, 101), body(1), plane(2, 101), plane(3, 501),
                                         plane(4, 501)};
        text.insert(text.end(), events.begin(), events.end());
        const auto& pilots = readLines(text);
        EXPECT_EQ(pilots[0].shotdownBy, by) << what;
        EXPECT_EQ(pilots[0].shotdownByOwn, own) << what;
        for (int32_t i = 0; i < 4; ++i)
            EXPECT_EQ(pilots[size_t(i)].kills.size(), i == by ? 1u : 0u) << what << ", " << i;
    }
}

TEST_F(ReportRulesTest, JudgesWounds) {
    const struct {
        const char* damage;
        int32_t percent, dead;
    } cases[] = {{"0", 0, 0},       {"0.009", 0, 0}, {"0.25", 25, 0}, {"0.977", 97, 0},
                 {"0.9771", 97, 1}, {"1.0", 100, 1}, {"1.5", 100, 1}};
    for (const auto& [damage, percent, dead] : cases) {
        const auto& pilots = readLines({plane(1, 101), body(1), event(2, -1, 1001, damage)});
        EXPECT_EQ(pilots[0].injuryPercent, percent) << damage;
        EXPECT_EQ(pilots[0].dead, dead) << damage;
        EXPECT_EQ(pilots[0].killCount, 0);
    }
    const auto& killed = readLines({plane(1, 101), body(1), event(3, -1, 1001), event(3, -1, 1)});
    EXPECT_TRUE(killed[0].dead == 1 && killed[0].killCount == 1 && killed[0].injuryPercent == 100);
}

TEST_F(ReportRulesTest, KnowsWhenTheMissionIsOver) {
    const struct {
        const char* what;
        int32_t nation; // of the planned pilot, 0 without a plan
        std::vector<std::string> events;
        bool over;
    } cases[] = {
        {"neither end nor death", France, {}, false},
        {"broken off", France, {"T:9 AType:7"}, false},
        {"shot down, not dead", France, {fall(1)}, false},
        {"the end of his body", France, {"T:9 AType:16 BOTID:1001"}, true},
        {"killed", France, {fall(1001)}, true},
        {"dead of his wounds", France, {event(2, -1, 1001, "0.99")}, true},
        {"another's end", France, {plane(2, 101), body(2), "T:9 AType:16 BOTID:1002"}, false},
        {"another's death", France, {plane(2, 101), body(2), fall(1002)}, false},
        {"nobody of the plan flew", Germany, {"T:9 AType:16 BOTID:1001"}, false},
        {"there is no plan", 0, {"T:9 AType:16 BOTID:1001"}, false},
    };
    for (const auto& [what, nation, events, over] : cases) {
        generator.plan.clear();
        if (nation != 0)
            generator.plan = {plannedPlane(5, "P1", nation)};
        std::vector<std::string> text = {plane(1, 101), body(1), "T:5 AType:10 PID:1001"};
        text.insert(text.end(), events.begin(), events.end());
        readLines(text);
        EXPECT_EQ(isOver, over) << what;
    }
}

} // namespace
