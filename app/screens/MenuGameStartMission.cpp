#include "app/screens/MenuGameStartMission.h"

#include "app/career/Database.h"
#include "app/mission/DailyMission.h"
#include "app/report/Flight.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/ScreenSounds.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/System.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t FirstRosterLine = 3; // the lines above belong to the menu
constexpr int32_t RosterRows = 8;

/// Why there is no mission. REQUIRES: a fault.
zel::String reasonFor(const DailyMission& mission) {
    const bool hasReason = mission.reason != zel::FileFault::None;
    const zel::String file = hasReason ? mission.file : MissionTemplateFile;
    const zel::String text = textOf(wording::MissionFaults[int32_t(mission.fault) - 1],
                                    {zel::system::shownText(zel::system::absolutePath(file))});
    return hasReason ? text + "\n" + faultSentence(mission.reason) : text;
}

} // namespace

void MenuGameStartMission::onEnter() {
    isSkipped = false;
    showWhatToDo(true);
    Database* career = runningCareer();
    if (career == nullptr)
        return;
    showDate();
    const DailyMission today = flight.begin(*career);
    int32_t line = FirstRosterLine;
    for (const zel::String& plane : today.roster)
        setText(zel::String("line") + line++, plane);
    showRows(FirstRosterLine, today.roster.size(), RosterRows);
    setText("menuButton4", startLabel(today));
    isSkipped = !today.isFlyable;
    showWhatToDo(today.isFlyable);
    setText("line2", textOf(flight.areOrdersKept() ? wording::FlyAndReturn : wording::FlyAndStay));
    if (zel::Widget* button = getWidget("menuButton4"); button != nullptr && isSkipped)
        button->setTransition("MenuGameCombatReport"); // there is no flight to wait for
    if (today.fault == MissionFault::None)
        playScreenSound("engine");
    else if (menu != nullptr)
        MenuNotification::show(*menu, "MenuNotificationMission", reasonFor(today));
}

void MenuGameStartMission::showWhatToDo(bool isFlyable) {
    for (const char* line : {"line1", "line2"})
        setVisible(line, isFlyable);
    for (const char* line : {"skip1", "skip2"})
        setVisible(line, !isFlyable);
}

void MenuGameStartMission::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = runningCareer();
    if (widget->getName() == "menuButton1")
        widget->reset(); // it leads nowhere and stays usable
    else if (widget->getName() == "menuButton4" && isSkipped && career != nullptr)
        flight.findReport(*career, true); // he may have flown before he switched his machines off
}
