#include "app/report/Outcome.h"

#include <sstream>

#include <gtest/gtest.h>

#include "app/report/CombatReport.h"
#include "app/report/FlightAccount.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"

namespace {

// Only where one text ends and the next begins, and what overrides what.
TEST(Outcome, HasThePilotsFate) {
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
        std::vector<PilotReport> reports(1);
        PilotReport& pilot = reports.front();
        pilot.killCount = killed;
        pilot.dead = dead;
        pilot.injuryPercent = percent;
        pilot.damage = damage;
        pilot.flightStatus = status;
        pilot.shotdownBy = by;
        EXPECT_EQ(Outcomes(reports, {}).of(0).fate, text)
            << percent << ' ' << damage << ' ' << status;
    }
}

/// A log of Sommer, who is the player, his wing man Brandt, the enemies Reed and Hall, a third one
/// whom the plan doesn't know, and a gun. They are objects 10, 20 and so on, their bodies 11, 21.
class Log {
public:
    Log() {
        const std::pair<const char*, int32_t> planes[] = {
            {"Erich Sommer/7", Germany}, {"Kurt Brandt", Germany}, {"Albert Reed", England},
            {"Ernest Hall", England},    {"Stranger", England},    {"gun", England}};
        int32_t id = 10;
        for (const auto& [name, country] : planes) {
            const bool isGun = id == 60;
            text << "T:5 AType:12 ID:" << id << " TYPE:" << (isGun ? "LMG08AAA" : "SE5a")
                 << " COUNTRY:" << country << " NAME:" << name << " PID:-1\n"
                 << "T:5 AType:12 ID:" << id + 1 << " TYPE:Common Bot COUNTRY:" << country
                 << " NAME: PID:" << id << "\n";
            id += 10;
        }
        text << "T:5 AType:10 PLID:10 PID:11\n";
    }
    /// Events, "SECONDS KIND ACTOR TARGET" each, "-1" for nobody.
    void add(const std::string& events) {
        std::istringstream words(events);
        for (int32_t seconds = 0, actor = 0, target = 0; words >> seconds;) {
            std::string kind;
            words >> kind >> actor >> target;
            text << "T:" << seconds * 50;
            if (kind == "hit")
                text << " AType:1 AMMO:x AID:" << actor << " TID:" << target << "\n";
            else if (kind == "damage")
                text << " AType:2 DMG:0.6 AID:" << actor << " TID:" << target << "\n";
            else if (kind == "deadly")
                text << " AType:2 DMG:0.98 AID:" << actor << " TID:" << target << "\n";
            else if (kind == "end")
                text << " AType:3 AID:" << actor << " TID:" << target << "\n";
            else if (kind == "land")
                text << " AType:6 PID:" << target << " POS(1,2,3)\n";
            else
                ADD_FAILURE() << kind;
        }
    }
    std::string str() const { return text.str(); }

private:
    std::ostringstream text;
};

const struct {
    const char* events;
    size_t place; // 0 Sommer to 5 gun
    const char* cause;
    const char* reason;
} Reasons[] = {
    {"60 end 10 30", 2, "Shotdown By: Erich Sommer/7", "The log names you as the victor."},
    {"60 end 10 30", 0, "", "The log names you as the victor over Albert Reed."},
    {"60 end 20 31 70 hit 10 30", 2, "Killed By: Kurt Brandt",
     "The log names Kurt Brandt as the victor."},
    {"60 end 30 10", 0, "Shotdown By: Albert Reed", "The log names Albert Reed as the victor."},
    {"50 hit 10 30 52 damage 20 30 61 end -1 30", 2, "Shotdown By: Kurt Brandt",
     "Credited to Kurt Brandt: last to hit, 9 seconds before the crash."},
    {"50 hit 10 30 51 end -1 30", 2, "Shotdown By: Erich Sommer/7",
     "Credited to you: last to hit, one second before the crash."},
    {"60 end -1 30 61 hit 10 30", 2, "Shotdown By: Erich Sommer/7",
     "Credited to you: last to hit."},
    {"50 hit 10 30 50 end -1 30", 0, "",
     "Credited with Albert Reed: last to hit him, at the moment of the crash."},
    {"50 hit 10 30 60 end -1 30 61 hit 10 40 62 end -1 40", 0, "",
     "Credited with Albert Reed and Ernest Hall: last to hit each of them."},
    {"50 hit 10 30 60 end -1 30 62 end 10 40 63 end 10 50", 0, "",
     "Credited with Ernest Hall, Stranger and Albert Reed: named by the log, or last to hit."},
    {"50 hit 20 10 60 end 20 10", 0, "Shotdown By Own: Kurt Brandt",
     "Own fire: the log names Kurt Brandt."},
    {"60 end 10 20", 1, "Shotdown By Own: Erich Sommer/7",
     "Collision: the log names you, without a shot."},
    {"50 hit 20 10 60 end -1 10", 0, "Shotdown By Own: Kurt Brandt",
     "Own fire: last hit by Kurt Brandt."},
    {"50 damage 40 30 60 end -1 30", 2, "Shotdown By Own: Ernest Hall",
     "Collision: last damaged by Ernest Hall, without a shot."},
    {"50 damage 10 10 60 end -1 10", 0, "Shotdown By Own: Erich Sommer/7",
     "The last damage was your own doing."},
    {"50 damage -1 30 60 end 30 30", 2, "Crashed", "Credited to nobody: no hit on him is logged."},
    {"60 end -1 10", 0, "Crashed", "Credited to nobody: no hit on you is logged."},
    {"50 deadly 10 31", 2, "", "Died of his wounds. His plane was not lost: credited to nobody."},
    {"50 hit 50 10", 4, "", "Your orders don't name him: nothing is counted for him."},
    {"60 end 10 50", 4, "Shotdown By: Erich Sommer/7", "The log names you as the victor."},
    {"50 hit 60 10", 5, "", "Not in your orders: nothing is counted for it."},
    {"50 hit 60 10 50 hit 60 10 90 land -1 10", 0, "",
     "Hit twice by machine gun on the ground; you landed."},
    {"50 hit 10 30", 2, "", "You hit him once; he did not fall."},
    {"50 hit 10 30 51 damage 10 30 54 hit 10 30 58 hit 10 30 90 land -1 30", 2, "",
     "You hit him 3 times; he landed. Not credited."},
    {"50 hit 10 30 52 hit 20 30", 2, "", "Hit twice, last by Kurt Brandt; he did not fall."},
    {"50 damage 40 30", 2, "", "Damaged by Ernest Hall; he did not fall."},
    {"50 damage -1 30 90 land -1 30", 2, "", "The log names nobody who did the damage."},
    {"150 land -1 30", 2, "", "Landed after 2 minutes; no hit on him is logged."},
    {"50 hit 30 10", 2, "", "No hit on him is logged, and no landing."},
    {"50 hit 30 10", 3, "", "The log has only the name."},
};

// Through the rules of the report, so that a reason which doesn't follow them shows.
TEST(Outcome, GivesItsReason) {
    for (const auto& [events, place, cause, reason] : Reasons) {
        Log log;
        log.add(events);
        MissionGenerator generator;
        generator.plan = {plannedPlane(0, "Erich Sommer", Germany, {0, 7, 0}),
                          plannedPlane(1, "Kurt Brandt", Germany),
                          plannedPlane(2, "Albert Reed", England),
                          plannedPlane(3, "Ernest Hall", England)};
        CombatReport report;
        const std::string text = log.str();
        report.lines.add(text);
        static_cast<void>(report.analyse());
        const FlownMission flown = accountOf(report, generator, "log");
        const Outcome outcome = Outcomes(flown.reports, flown.events).of(place);
        EXPECT_EQ(outcome.cause, cause) << events;
        EXPECT_EQ(outcome.reason, reason) << events;
    }
}

// A log so long that hits were dropped isn't taken for one without hits.
TEST(Outcome, SaysLessOfACutLog) {
    std::vector<PilotReport> reports(2);
    reports[0].name = "Brandt";
    reports[1].shotDown = 1;
    std::vector<FlightEvent> events(MostFlightEvents);
    EXPECT_EQ(Outcomes(reports, events).of(1).reason,
              "Credited to nobody: the log names no victor.");
    reports[1].shotdownByOwn = 0;
    EXPECT_EQ(Outcomes(reports, events).of(1).reason, "Own side: last hit by Brandt.");
}

} // namespace
