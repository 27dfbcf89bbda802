#include "tests/app/screens/ScreenTour.h"

#include <sstream>

#include "app/career/Database.h"
#include "app/report/CombatReport.h"
#include "app/screens/MenuNotification.h"
#include "engine/core/Language.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/HandMade.h"

namespace {

using Visit = std::function<void(const std::string& name)>;

// The ways of the tour: steps as those of CareerDriver::walk. One with a "!" ends at a screen to be
// shown, under its name and what follows the mark.
constexpr const char* ToTheInvitation =
    "menuButton1>MenuNewService! menuButton2>MenuNewYear! menuButton4>MenuNewMonth1918! "
    "menuBack>MenuNewYear menuButton3>MenuNewMonth! month4>MenuNewCareer! "
    "menuButton4>MenuGameMain! menuButton2>MenuGameViewSquadron! menuButton1>MenuGameMain "
    "menuButton3>MenuGameTopAces! menuButton1>MenuGameMain";
constexpr const char* ToTheFlight =
    "menuButton1>MenuGameInvite! menuButton4>MenuGameMain menuButton1>MenuGameStartMission! "
    "menuButton4>MenuGameFinishMission!";
constexpr const char* ToTheNextFlight =
    "menuButton1>MenuGameAdvance menuButton1>MenuGameMain menuButton1>MenuGameStartMission "
    "menuButton4>MenuGameFinishMission";
constexpr const char* ToTheFullReport = "menuButton4>MenuGameCombatReport sheet2 sheet1!_Full";
constexpr const char* ToTheEmptyReport =
    "menuButton4>MenuGameCombatReport!_None menuButton1>MenuGameAdvance! menuButton1>MenuGameMain";
constexpr const char* ToTheEnd = "menuButton2>MenuGameViewSquadron "
                                 "menuButton1>MenuGameMain!_WarIsOver menuBack>MenuMain";
constexpr const char* ThroughTheSettings =
    "menuButton3>MenuConfiguration! menuButton1>MenuConfigurationMaps! "
    "menuBack>MenuConfiguration menuButton2>MenuConfigurationPlanes1 item2 item11! "
    "menuButton1>MenuConfigurationPlanes2! menuBack>MenuConfiguration menuBack>MenuMain "
    "menuButton4>MenuHelp1! menuButton1>MenuHelp2! "
    "menuBack>MenuHelp1 menuBack>MenuMain "
    "menuButton5>MenuCredits! menuBack>MenuMain";

class Tour {
public:
    Tour(CareerDriver& driver, const Visit& visit) : driver(driver), visit(visit) {}

    bool run() {
        return go("MenuMain") && follow(ToTheInvitation) && driver.invite() >= 0 &&
               follow(ToTheFlight) && flight() && follow(ToTheNextFlight) && fillReport() &&
               follow(ToTheFullReport) && follow(ToTheNextFlight) && follow(ToTheEmptyReport) &&
               endWar() && follow(ToTheEnd) && follow(ThroughTheSettings) && notices();
    }

private:
    bool follow(const std::string& way) {
        std::istringstream stream(way);
        for (std::string step; stream >> step;) {
            const size_t mark = step.find('!');
            const auto result = driver.walk(step.substr(0, mark));
            EXPECT_TRUE(result);
            if (!result)
                return false;
            if (mark != step.npos)
                visit(driver.state() + step.substr(mark + 1));
        }
        return true;
    }
    /// Where no button leads.
    bool go(const std::string& screen) {
        if (driver.state() != screen)
            driver.screens->menu().setTransition(screen);
        const bool there = driver.screens->untilIdle(screen.c_str());
        EXPECT_TRUE(there) << screen;
        showEverybodysFolders();
        if (there)
            visit(screen);
        return there;
    }

    /// In place of this computer's.
    void showEverybodysFolders() {
        zel::Menu& menu = driver.screens->menu();
        menu.setText("path", "C:\\Games\\Wingtally\\wtysettings.ini");
        if (driver.state() == "MenuNotificationInstallDir")
            menu.setText("example", zel::Language::get(2004));
        if (driver.state() != "MenuNotificationRepair")
            return;
        menu.setText("path", "C:\\Users\\Albert Ball\\AppData\\Roaming\\Wingtally\\Saves\\"
                             "savegame_v03.wty.damaged");
        menu.getWidget("menuButton2")->setVisible(true); // as if there were a save before it
        menu.getTextArea("text3")->setVisible(true);
        menu.getTextArea("text4")->setVisible(false);
    }

    bool flight() {
        standin::FlightOptions options;
        options.seed = 2; // a flight with losses, which the player survives
        EXPECT_TRUE(driver.fly(options));
        driver.look();
        if (!driver.screens->untilIdle("MenuGameCombatReport"))
            return false;
        visit(driver.state());
        return true;
    }

    static bool fillReport() {
        for (int32_t i = 0; i < 20; ++i) {
            PilotReport& pilot = CombatReport::instance()->pilots.emplace_back();
            // The longest name of the log, and a player's that nobody of the plan has.
            pilot.name = i % 2 == 0 ? "Wolfram-Friedrich von Hohenlohe/12" : "Edward Mannock";
            pilot.country = i % 2 == 0 ? Germany : England;
            pilot.type = i == 4 ? "LMG08AAA" : "";
            pilot.shotDown = pilot.dead = i % 3 == 0 ? 1 : 0;
            pilot.shotdownBy = i == 0 ? 1 : 0;
            pilot.human = i == 1 ? 1 : 0;
        }
        return true;
    }

    static bool endWar() {
        setDate(*Database::instance(), 1918, 11, 11);
        return true;
    }

    bool notices() {
        const zel::String mission = "C:\\Program Files (x86)\\Steam\\steamapps\\common\\Rise of "
                                    "Flight\\data\\Missions\\WingtallyMission.Mission";
        const zel::String save = "C:\\Users\\Albert Ball\\AppData\\Roaming\\Wingtally\\Saves\\"
                                 "savegame_v03.wty";
        const std::pair<const char*, zel::String> notices[] = {
            {"MenuNotificationMission", zel::Language::get(2214, mission)},
            {"MenuNotificationSave", save},
            {"MenuNotificationMissionTextLog", {}},
            {"MenuNotificationInstallDir", {}},
            {"BlackScreen", {}},
            {"MenuNotificationRepair", {}},
            {"MenuNotificationUnsaved", {}},
        };
        Database::instance()->repairs = {true, 117, 12, 40, 1, 0, true};
        for (const auto& [notice, reason] : notices) {
            MenuNotification::show(driver.screens->menu(), notice, reason);
            if (!go(notice))
                return false;
        }
        return go("MenuMain");
    }

    CareerDriver& driver;
    const Visit& visit;
};

} // namespace

bool tourScreens(CareerDriver& driver, const Visit& visit) { return Tour(driver, visit).run(); }
