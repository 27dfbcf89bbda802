#include "tests/app/screens/ScreenTour.h"

#include <filesystem>

#include "app/career/Database.h"
#include "app/report/CombatReport.h"
#include "app/screens/MenuNotification.h"
#include "app/war/SquadronSimulator.h"
#include "engine/menu/Widget.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

using Visit = std::function<void(const std::string& name)>;

class Tour {
public:
    Tour(CareerDriver& driver, const PlayerHome& home, const Visit& visit)
        : driver(driver), home(home), visit(visit) {}

    bool run() {
        return go("MenuMain") && beginning() && office() && flight() && settings() && notices();
    }

private:
    /// Follows the steps and shows each screen that they reach.
    bool steps(const std::string& way) {
        for (size_t from = 0; from < way.size();) {
            const size_t to = std::min(way.find(' ', from), way.size());
            const auto result = driver.walk(way.substr(from, to - from));
            EXPECT_TRUE(result);
            if (!result)
                return false;
            visit(driver.state());
            from = to + 1;
        }
        return true;
    }
    bool pass(const std::string& way) {
        const auto result = driver.walk(way);
        EXPECT_TRUE(result);
        return bool(result);
    }
    /// Where no button leads.
    bool go(const std::string& screen) {
        if (driver.screens->menu().getName() != zel::String(screen))
            driver.screens->menu().setTransition(screen);
        const bool there = driver.screens->untilIdle(screen.c_str());
        EXPECT_TRUE(there) << screen;
        driver.screens->menu().setText("path", "C:\\Games\\Wingtally\\wtysettings.ini");
        if (there)
            visit(screen);
        return there;
    }
    Database& career() { return *Database::instance(); }

    bool beginning() {
        return steps("menuButton1>MenuNewService menuButton2>MenuNewYear "
                     "menuButton4>MenuNewMonth1918") &&
               pass("menuBack>MenuNewYear") &&
               steps("menuButton3>MenuNewMonth month4>MenuNewCareer menuButton4>MenuGameMain");
    }

    bool office() {
        if (!steps("menuButton2>MenuGameViewSquadron") || !pass("menuButton1>MenuGameMain") ||
            !steps("menuButton3>MenuGameTopAces") || !pass("menuButton1>MenuGameMain"))
            return false;
        career().invitationSquadron = inviting();
        career().invitationYear = career().year;
        career().invitationMonth = career().month;
        return steps("menuButton1>MenuGameInvite") && pass("menuButton4>MenuGameMain");
    }

    /// The strongest squadron of the player's nation but his own: its letter is the longest.
    int32_t inviting() {
        int32_t best = 0;
        float strength = -1;
        for (int32_t squadron = 0; squadron < static_cast<int32_t>(career().squadrons.size());
             ++squadron) {
            const float other = SquadronSimulator::squadronStrength(squadron);
            if (career().squadrons[size_t(squadron)].nation == career().player().nation &&
                squadron != career().player().squadron && other > strength) {
                best = squadron;
                strength = other;
            }
        }
        return best;
    }

    bool flight() {
        if (!steps("menuButton1>MenuGameStartMission menuButton4>MenuGameFinishMission"))
            return false;
        standin::FlightOptions options;
        options.seed = 2; // a flight with losses, which the player survives
        EXPECT_TRUE(driver.fly(options));
        driver.look();
        if (!driver.screens->untilIdle("MenuGameCombatReport"))
            return false;
        visit("MenuGameCombatReport");
        return pass("menuButton1>MenuGameMain menuButton1>MenuGameStartMission "
                    "menuButton4>MenuGameFinishMission") &&
               fullReport() && emptyReport() && go("MenuGameAdvance") &&
               driver.screens->untilIdle("MenuGameMain") && end();
    }

    bool fullReport() {
        for (int32_t i = 0; i < 20; ++i) {
            PilotReport pilot;
            pilot.name = i % 2 == 0 ? "Friedrich-Karl von Preussen" : "Edward Mannock";
            pilot.country = i % 2 == 0 ? 501 : 102;
            pilot.shotDown = pilot.dead = i % 3 == 0 ? 1 : 0;
            pilot.shotdownBy = i == 0 ? 1 : 0;
            pilot.human = i == 1 ? 1 : 0;
            CombatReport::instance()->pilots.push_back(pilot);
        }
        if (!pass("menuButton4>MenuGameCombatReport sheet2 sheet1"))
            return false;
        visit("MenuGameCombatReport_Full");
        return pass("menuButton1>MenuGameMain menuButton1>MenuGameStartMission "
                    "menuButton4>MenuGameFinishMission");
    }

    bool emptyReport() {
        if (!pass("menuButton4>MenuGameCombatReport"))
            return false;
        visit("MenuGameCombatReport_None");
        return pass("menuButton1>MenuGameMain");
    }

    bool end() {
        career().year = 1918;
        career().month = 11;
        career().day = 11;
        if (!pass("menuButton2>MenuGameViewSquadron menuButton1>MenuGameMain"))
            return false;
        visit("MenuGameMain_WarIsOver");
        return pass("menuBack>MenuMain");
    }

    bool settings() {
        return steps("menuButton3>MenuConfiguration menuButton1>MenuConfigurationMaps") &&
               pass("menuBack>MenuConfiguration menuButton2>MenuConfigurationPlanes1 item2") &&
               steps("item11 menuButton1>MenuConfigurationPlanes2") &&
               pass("menuBack>MenuConfiguration menuBack>MenuMain") &&
               steps("menuButton4>MenuHelp1 menuButton1>MenuHelp2") && pass("menuBack>MenuMain") &&
               steps("menuButton5>MenuCredits") && pass("menuBack>MenuMain");
    }

    bool notices() {
        const char* reason = "The mission can't be written to /home/player/.wine/drive_c/Program "
                             "Files (x86)/Rise of Flight/data/Missions/WingtallyMission.Mission";
        for (const char* notice :
             {"MenuNotificationMission", "MenuNotificationSave", "MenuNotificationMissionTextLog",
              "MenuNotificationInstallDir", "BlackScreen"}) {
            MenuNotification::show(driver.screens->menu(), notice, reason);
            if (!go(notice))
                return false;
        }
        return go("MenuMain");
    }

    CareerDriver& driver;
    const PlayerHome& home;
    const Visit& visit;
};

} // namespace

bool tourScreens(CareerDriver& driver, const PlayerHome& home, const Visit& visit) {
    return Tour(driver, home, visit).run();
}
