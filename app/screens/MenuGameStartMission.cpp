#include "app/screens/MenuGameStartMission.h"

#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/mission/DailyMission.h"
#include "app/mission/MissionGenerator.h"
#include "app/report/LogWatch.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/ScreenSounds.h"
#include "engine/menu/Widget.h"

namespace {

constexpr int32_t FirstRosterLine = 3; // the lines above belong to the menu

} // namespace

MenuGameStartMission::MenuGameStartMission()
    : CareerScreen("MenuGameStartMission"), generator(std::make_unique<MissionGenerator>()) {}

MenuGameStartMission::~MenuGameStartMission() = default;

void MenuGameStartMission::onEnter() {
    Database* career = runningCareer();
    if (career == nullptr)
        return;
    showDate();
    missionLogs().begin(Configuration::getRofDirectory() + "data\\");
    const DailyMission today = writeDailyMission(*career, *generator);
    int32_t line = FirstRosterLine;
    for (const zel::String& plane : today.roster)
        setText(zel::String("line") + line++, plane);
    setText("menuButton4", startLabel(today));
    if (today.problem.empty())
        playScreenSound("engine");
    else if (menu != nullptr)
        MenuNotification::show(*menu, "MenuNotificationMission", today.problem);
}

void MenuGameStartMission::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuButton1")
        widget->reset(); // it leads nowhere, and stays usable
}
