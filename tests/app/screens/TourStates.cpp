#include "tests/app/screens/TourStates.h"

#include "app/career/Nation.h"
#include "app/report/CombatReport.h"
#include "app/screens/FlightRoster.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/app/screens/CareerDriver.h"

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
    std::vector<RosterEntry> flight{{"2nd Lt W. Hohenlohe (you)", "se5a", 100}};
    for (int32_t i = 0; i < 12; ++i)
        flight.push_back({"Companion", i % 2 == 0 ? "albatrosd2late" : "sopcamel", 12 - i});
    FlightRoster().show(driver.screens->menu(), flight);
    visit("MenuGameStartMission_Full");
    return true;
}

bool fillReport() {
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
