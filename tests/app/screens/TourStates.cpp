#include "tests/app/screens/TourStates.h"

#include <algorithm>
#include <filesystem>

#include "app/book/BookTables.h"
#include "app/book/LogBookText.h"
#include "app/book/OrdersText.h"
#include "app/book/PilotRecord.h"
#include "app/career/Nation.h"
#include "app/report/CombatReport.h"
#include "app/screens/FlightRoster.h"
#include "app/screens/SimulatorPlaces.h"
#include "app/screens/SimulatorTexts.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/LogBooks.h"

namespace {

/// Instead of this computer's folders.
void showEverybodysPlaces(CareerDriver& driver, bool hasChosen) {
    std::vector<SimulatorPlace> shown{
        {"C:\\Program Files (x86)\\Steam\\steamapps\\common\\Rise of Flight", FoundBy::LastTime},
        {"C:\\Games\\Rise of Flight", FoundBy::Registry},
        {"E:\\Old\\Rise of Flight", FoundBy::Drive}};
    if (hasChosen)
        shown.insert(shown.begin(), {"D:\\Simulators\\Rise of Flight", FoundBy::Chosen});
    for (size_t row = 0; row < shown.size(); ++row)
        driver.screens->menu().setText(zel::String("place.row") + int32_t(row + 1),
                                       placeText(shown[row]));
}

/// Three places, and a desk with folders. One of them holds a simulator that can't be used yet.
void layPlaces(const PlayerHome& home) {
    const std::string data = home.simulator + "/data/";
    for (const auto& entry : std::filesystem::directory_iterator(home.folder.file(data)))
        if (entry.path().extension() == ".txt")
            std::filesystem::remove(entry.path());
    setWritten(home.folder.write(data + "missionReport(2009-05-06_20-15-00)[0].txt", "T:0"),
               "2009-05-06 20:15");
    SearchRoots roots;
    roots.lastTime = home.simulatorFolder();
    for (const char* place : {"registry", "disk/Rise of Flight"})
        home.folder.write(std::string(place) + "/data/startup.cfg", "mission_text_log = 1\n");
    roots.registry = home.folder.file("registry");
    roots.drives = {home.folder.file("disk")};
    SimulatorPlaces::setRoots(roots);
    for (const char* folder :
         {"1946", "Backup", "Rowing", "Saved Games", "Screenshots", "Skins", "Tools", ".wine",
          "Rise of Flight/bin_game", "Rise of Flight/docs", "Xylophones", "Zeppelins"})
        std::filesystem::create_directories(home.folder.file("desk") + "/" + folder);
    home.folder.write("desk/Rise of Flight/data/startup.cfg",
                      std::string_view("\xFF\xFE[\0K\0", 6)); // UTF-16, which isn't changed
    setHome(home.folder.file("desk"));
}

/// The main menu, entered again, leads on to the page of the simulator.
bool comesByItself(CareerDriver& driver) {
    return driver.walk("menuButton5>MenuCredits menuBack>MenuSimulator");
}

} // namespace

bool tourEnlistment(CareerDriver& driver, const std::function<void(const std::string&)>& visit) {
    const std::string drawn = driver.text("name");
    const auto write = [&](const std::string& name) {
        driver.widget("name")->setText(name);
        driver.screens->step();
    };
    if (!driver.walk("sent"))
        return false;
    write("Wolfram-Friedrich von Hohenlohe");
    visit("MenuEnlist_Sent");
    write("Albert Ball");
    visit("MenuEnlist_Ace");
    write(drawn);
    return true;
}

bool crowdRoster(CareerDriver& driver, const std::function<void(const std::string&)>& visit) {
    constexpr size_t Letters = 25; // of the orders
    const RankRow* const rank =
        &*std::find_if(BookTables::instance().ranks.begin(), BookTables::instance().ranks.end(),
                       [](const RankRow& one) { return one.shortName == "Flt Sub-Lt"; });
    PilotRecord player;
    player.name = "Bartholomew-Maximilian Feathers";
    player.honours.ranks.push_back({19170402, rank});
    std::vector<RosterEntry> flight{{rosterName(player, Letters), "se5a", 100}};
    for (int32_t i = 0; i < 12; ++i)
        flight.push_back({initialName("Wolfram-Friedrich von Hohenlohe", Letters),
                          i % 2 == 0 ? "albatrosd2late" : "sopcamel", 12 - i});
    FlightRoster().show(driver.screens->menu(), flight);
    visit("MenuGameStartMission_Full");
    return true;
}

bool fillReport() {
    for (int32_t i = 0; i < 20; ++i) {
        PilotReport& pilot = CombatReport::instance()->pilots.emplace_back();
        // The longest name that a log can have, and a player's name that nobody in the plan has.
        pilot.name = i % 2 == 0 ? "Wolfram-Friedrich von Hohenlohe/12" : "Edward Mannock";
        pilot.country = i % 2 == 0 ? Germany : England;
        pilot.type = i == 4 ? "LMG08AAA" : "";
        pilot.shotDown = pilot.dead = i % 3 == 0 ? 1 : 0;
        pilot.shotdownBy = i == 0 ? 1 : 0;
        pilot.human = i == 1 ? 1 : 0;
    }
    return true;
}

bool tourSimulator(CareerDriver& driver, const std::function<void(const std::string&)>& visit) {
    const auto visitPlaces = [&](const std::string& picture, bool hasChosen = false) {
        showEverybodysPlaces(driver, hasChosen);
        visit(picture);
    };
    const std::string settings = driver.home.simulator + "/data/startup.cfg";
    layPlaces(driver.home);
    if (!driver.walk("simulator>MenuSimulator"))
        return false;
    visitPlaces("MenuSimulator_Ready");
    if (!driver.walk("lookElsewhere>MenuSimulatorFolder"))
        return false;
    visit("MenuSimulatorFolder");
    if (!driver.walk("folder.row3"))
        return false;
    visit("MenuSimulatorFolder_Right");
    driver.screens->step(600); // a double click opens one folder
    if (!driver.walk("folder.row2"))
        return false;
    visit("MenuSimulatorFolder_Data");
    if (!driver.walk("menuButton1>MenuSimulator switchOn"))
        return false;
    visitPlaces("MenuSimulator_Unwritable", true);
    if (!driver.walk("menuBack>MenuMain"))
        return false;
    driver.home.folder.write(settings, "mission_text_log = 0\n");
    if (!comesByItself(driver))
        return false;
    visitPlaces("MenuSimulator");
    if (!driver.walk("switchOn"))
        return false;
    visitPlaces("MenuSimulator_Switched");
    SimulatorPlaces::setRoots({});
    std::filesystem::remove(driver.home.folder.file(settings));
    if (!driver.walk("menuButton1"))
        return false;
    visitPlaces("MenuSimulator_Gone");
    if (!driver.walk("lookAgain"))
        return false;
    visit("MenuSimulator_None");
    return true;
}
