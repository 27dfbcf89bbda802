#include "tests/app/screens/ScreenTour.h"

#include <sstream>

#include "app/book/BookTables.h"
#include "app/book/Standing.h"
#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/report/CombatReport.h"
#include "app/screens/MenuNotification.h"
#include "engine/core/Language.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/BookFlights.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/LogBooks.h"
#include "tests/app/screens/TourBooks.h"
#include "tests/app/screens/TourStates.h"
#include "tests/support/HandMade.h"

namespace {

using Visit = std::function<void(const std::string& name)>;

// The ways of the tour: steps as those of CareerDriver::walk. One with a "!" ends at a screen to be
// shown, under its name and what follows the mark.
constexpr const char* ToTheEnlistment =
    "careers>MenuCareers!_Empty another>MenuNewService! menuButton2>MenuNewYear! "
    "menuButton4>MenuNewMonth1918! "
    "menuBack>MenuNewYear menuButton3>MenuNewMonth! month4>MenuEnlist own squadron.row3!";
constexpr const char* ToTheInvitation =
    "menuButton1>MenuNewCareer! menuButton4>MenuGameMain! menuButton2>MenuGameViewSquadron! "
    "menuButton1>MenuGameMain "
    "menuButton3>MenuGameTopAces! menuButton1>MenuGameMain logbook>MenuGameLogbook!_None "
    "menuBack>MenuGameMain diary>MenuGameDiary!_First menuButton1>MenuGameMain "
    "record>MenuGameRecord!_None menuBack>MenuGameMain";
constexpr const char* ToTheFlight =
    "menuButton1>MenuGameInvite! menuButton4>MenuGameMain menuButton1>MenuGameStartMission!";
constexpr const char* FromTheOrders =
    "menuBack>MenuGameMain!_Orders awaitReport>MenuGameFinishMission!";
constexpr const char* ToTheNextFlight = "menuButton1>MenuGameAdvance menuButton1>MenuGameDiary "
                                        "menuButton1>MenuGameMain menuButton1>MenuGameStartMission "
                                        "menuButton4>MenuGameFinishMission";
constexpr const char* ToTheBook =
    "where>MenuGameWhere! menuBack>MenuGameCombatReport "
    "menuButton1>MenuGameAdvance menuButton1>MenuGameDiary menuButton1>MenuGameMain "
    "logbook>MenuGameLogbook! left1>MenuGameCombatReport!_Again "
    "menuButton1>MenuGameLogbook menuBack>MenuGameMain "
    "menuButton1>MenuGameStartMission "
    "menuButton4>MenuGameFinishMission";
constexpr const char* ToTheFullReport =
    "menuButton4>MenuGameCombatReport nextSheet nextSheet nextSheet nextSheet!_Full";
constexpr const char* ToTheFullBook =
    "logbook>MenuGameLogbook!_Full earlier left2>MenuGameCombatReport "
    "where>MenuGameWhere!_Full menuButton1>MenuGameLogbook "
    "menuBack>MenuGameMain";
constexpr const char* ToTheEmptyReport =
    "menuButton4>MenuGameCombatReport!_None menuButton1>MenuGameAdvance! "
    "menuButton1>MenuGameDiary! menuButton1>MenuGameMain";
// The squadron's historic ace, the best of all, one who has fallen.
constexpr const char* ToThePilots =
    "menuButton2>MenuGameViewSquadron!_Full pilot.row2>MenuGamePilot! "
    "menuBack>MenuGameViewSquadron menuButton1>MenuGameMain menuButton3>MenuGameTopAces!_Full "
    "pilot.row1>MenuGamePilot!_Full menuBack>MenuGameTopAces pilot.row4>MenuGamePilot!_Fallen "
    "menuBack>MenuGameTopAces menuButton1>MenuGameMain";
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
        visit("MenuMain_NoBook");
        return follow(ToTheEnlistment) && tourEnlistment(driver, visit) &&
               follow(ToTheInvitation) && driver.invite() >= 0 && follow(ToTheFlight) &&
               crowdRoster(driver, visit) && follow(FromTheOrders) && flight() &&
               follow(ToTheBook) && fillReport() && follow(ToTheFullReport) &&
               follow(ToTheNextFlight) && follow(ToTheEmptyReport) && addFlights(82) &&
               follow(ToTheFullBook) && serve() && endWar() && turnTo("MenuGameMain") &&
               follow(ToTheEnd) && endWays() && drawer() && follow(ThroughTheSettings) &&
               notices() && tourSimulator(driver, visit);
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
    /// States that no button leads to.
    bool go(const std::string& screen, const std::string& picture = "") {
        if (!turnTo(screen))
            return false;
        showEverybodysFolders();
        visit(screen + picture);
        return true;
    }
    bool turnTo(const std::string& screen) {
        if (driver.state() != screen)
            driver.screens->menu().setTransition(screen);
        const bool there = driver.screens->untilIdle(screen.c_str());
        EXPECT_TRUE(there) << screen;
        return there;
    }

    /// Instead of this computer's.
    void showEverybodysFolders() {
        zel::Menu& menu = driver.screens->menu();
        menu.setText("path", "C:\\Games\\Wingtally\\wtysettings.ini");
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

    static bool addFlights(int32_t count) {
        addFlightsToBook(*Database::instance(), count);
        return true;
    }

    /// A service of 120 victories, and its pages on the way.
    bool serve() {
        constexpr int32_t VictoriesOfFlights[] = {1, 2, 1, 0, 0, 2, 16, 16, 16, 16, 15, 14, 14, 7};
        constexpr auto Flights = int32_t(std::size(VictoriesOfFlights));
        constexpr int32_t FlightOfTheCross = 5; // after the sixth flight he has six victories
        Database& career = *Database::instance();
        career.player().shotdowns = 0;
        for (int32_t flight = 0; flight < Flights; ++flight) {
            setDay(career, flight * 6);
            addFlight(career, VictoriesOfFlights[flight]);
            if (flight == FlightOfTheCross && !(readLetter(career, flight * 6 + 3)))
                return false;
        }
        setDay(career, Flights * 6);
        return go("MenuGameRecord", "_Full") && go("MenuGameDiary", "_Full") && meetTheBest();
    }
    /// Lists with the player in them and the longest of names, and the page of the best ace.
    bool meetTheBest() {
        constexpr int32_t Victories = 121; // one more than the player
        constexpr const char* LongName = "Wolfram-Friedrich von Hohenlohe";
        Database& career = *Database::instance();
        const int32_t best = aceRows(career, BookTables::instance(), 2).back().pilot;
        const zel::String own = zel::arrayText(career.player().name);
        zel::copyText(career.pilot(best).name, LongName);
        zel::copyText(career.player().name, "Bartholomew-Maximilian Feathers");
        for (int32_t i = career.pilot(best).shotdowns; i < Victories; ++i) {
            Victory victory = victoryOver(i % 2 == 0 ? LongName : "August Hanko", i);
            victory.victor = best;
            victory.hasDied = i % 3 == 0;
            career.observer->onVictory(career, victory);
        }
        career.pilot(best).shotdowns = Victories;
        fell(career, aceRows(career, BookTables::instance(), 4).back().pilot, best);
        const bool isDone = turnTo("MenuGameMain") && follow(ToThePilots);
        zel::copyText(career.player().name, own);
        return isDone;
    }
    static void setDay(Database& career, int32_t days) {
        Calendar day(1917, 6, 20);
        day.addDays(days);
        setDate(career, day.getYear(), day.getMonth(), day.getDay());
    }
    bool readLetter(Database& career, int32_t day) {
        setDay(career, day);
        if (!turnTo("MenuGameAdvance") || !driver.screens->menu().hitWidget("menuButton1") ||
            !driver.screens->untilIdle("MenuGameCitation"))
            return false;
        visit("MenuGameCitation");
        return follow("record>MenuGameRecord menuBack>MenuGameDiary menuButton1>MenuGameMain "
                      "record>MenuGameRecord! menuBack>MenuGameMain");
    }
    static bool endWar() {
        setDate(*Database::instance(), 1918, 11, 11);
        return true;
    }

    /// The end of the war for different players, and the letter about him.
    bool endWays() {
        Database& career = *Database::instance();
        if (!follow("menuButton2>MenuGameMain") || !go("MenuGameWarOver"))
            return false;
        setDay(career, 87);
        return fall() && endWithSuccessor() && turnTo("MenuMain");
    }
    /// He falls in a fight; the letter, and the war's end before anybody has flown in his place.
    bool fall() {
        Database& career = *Database::instance();
        addFallToBook(career);
        if (!turnTo("MenuGameCombatReport") || !driver.walk("menuButton1>MenuGameAdvance") ||
            !driver.screens->menu().hitWidget("menuButton1") ||
            !driver.screens->untilIdle("MenuGameFallen"))
            return false;
        visit("MenuGameFallen");
        return driver.walk("menuButton1>MenuGameDiary menuButton1>MenuGameMain") && endWar() &&
               go("MenuGameWarOver", "_Fallen");
    }
    /// His successor's war ends with some victories, with none, and with his death.
    bool endWithSuccessor() {
        Pilot& player = Database::instance()->player();
        player.missions = 12;
        player.shotdowns = 7;
        if (!turnTo("MenuGameMain") || !go("MenuGameWarOver", "_Successor"))
            return false;
        player.shotdowns = 0;
        if (!turnTo("MenuGameMain") || !go("MenuGameWarOver", "_None"))
            return false;
        player.alive = 0;
        return go("MenuGameFallen", "_Peace");
    }

    /// Shows seven books, the last of which has to be scrolled into view.
    bool drawer() {
        setWritten(driver.home.folder.file("user/Saves/savegame_v03.wty"), "2009-05-07 11:58");
        int32_t number = 1;
        for (const ShelvedBook& book : Books) {
            const std::string folder = putBook(driver.home, ++number, book);
            for (int32_t page = int32_t(std::size(Pages)); page > 0 && number == 2; --page)
                putPage(driver.home, folder, 7 - page, Pages[page - 1]);
        }
        return follow("careers>MenuCareers") && choose("book.row2", "MenuCareers") &&
               choose("book.row4", "MenuCareers_Fallen") &&
               driver.screens->menu().hitWidget("book.row2") && follow("away!_PutAway away") &&
               follow("pages>MenuCareerPages") && choose("page.row2", "MenuCareerPages") &&
               follow("menuBack>MenuCareers menuBack>MenuMain") && longOrLostBooks();
    }
    bool longOrLostBooks() {
        const std::string folder = putBook(driver.home, 10, LongBook);
        for (int32_t page = 1; page < 14; ++page) {
            ShelvedBook earlier = LongBook;
            earlier.date -= page;
            putPage(driver.home, folder, 20 - page, earlier, page == 2);
        }
        setWritten(driver.home.folder.write("user/Careers/0011 Albert Reed/savegame_v03.wty", "?"),
                   "2008-01-01 10:00");
        if (!follow("careers>MenuCareers") || !choose("book.row2", "MenuCareers_Long") ||
            !follow("pages>MenuCareerPages") || !choose("page.row3", "MenuCareerPages_Damaged") ||
            !follow("menuBack>MenuCareers"))
            return false;
        for (const int32_t key : {zel::KeyEnd, zel::KeyReturn})
            driver.screens->key(key);
        visit("MenuCareers_Unread");
        return follow("menuBack>MenuMain");
    }
    bool choose(const char* row, const char* picture) {
        const bool isChosen = driver.screens->menu().hitWidget(row);
        EXPECT_TRUE(isChosen) << row;
        visit(picture);
        return isChosen;
    }

    bool notices() {
        const zel::String mission = "C:\\Program Files (x86)\\Steam\\steamapps\\common\\Rise of "
                                    "Flight\\data\\Missions\\WingtallyMission.Mission";
        const zel::String save = "C:\\Users\\Albert Ball\\AppData\\Roaming\\Wingtally\\Saves\\"
                                 "savegame_v03.wty";
        const std::pair<const char*, zel::String> notices[] = {
            {"MenuNotificationMission", zel::Language::get(2214, mission)},
            {"MenuNotificationSave", save},
            {"BlackScreen", {}},
            {"MenuNotificationRepair", {}},
            {"MenuNotificationUnsaved", {}},
        };
        Database* career = Database::instance();
        career->repairs = {false, false, true, 117, 12, 40, 1, 0, true, 0};
        career->damagedSave = save;
        career->saveCheck.fault = SaveFault::Missing;
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
