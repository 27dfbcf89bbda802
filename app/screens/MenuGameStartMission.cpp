#include "app/screens/MenuGameStartMission.h"

#include "app/book/BookTables.h"
#include "app/book/LogBookText.h"
#include "app/book/OrdersText.h"
#include "app/book/OrdersWording.h"
#include "app/book/PilotRecord.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/report/Flight.h"
#include "app/report/ReportText.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/OwnStandIn.h"
#include "app/screens/ScreenSounds.h"
#include "app/screens/ScreenWording.h"
#include "app/screens/SectorPainter.h"
#include "engine/core/System.h"
#include "engine/graphics/Font.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr const char* TownFont = "Fonts/map18";
constexpr size_t NameLetters = 25; // of the roster

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
    const bool isEnteredAgain = isReopened();
    isSkipped = false;
    showWhatToDo(true);
    Database* career = runningCareer();
    if (career == nullptr)
        return;
    setText("date", bookDate(career->calendar()));
    if (!isEnteredAgain) {
        lastLook.begin();
        today = flight.begin(*career);
    }
    showTask(*career);
    showRoster(*career);
    setText("menuButton4", startLabel(today));
    setFocus("menuButton4");
    isSkipped = !today.isFlyable;
    showWhatToDo(today.isFlyable);
    setText("line3", textOf(!flight.areOrdersKept()  ? wording::FlyAndStay
                            : OwnStandIn::isChosen() ? wording::StandInFlight
                                                     : wording::FlyAndReturn));
    if (isEnteredAgain)
        return;
    if (today.fault == MissionFault::None)
        playScreenSound("engine");
    else if (menu != nullptr)
        MenuNotification::show(*menu, "MenuNotificationMission", reasonFor(today));
}

void MenuGameStartMission::showWhatToDo(bool isFlyable) {
    for (const char* line : {"line1", "line2", "line3", "legend2"})
        setVisible(line, isFlyable);
    for (const char* line : {"skip1", "skip2"})
        setVisible(line, !isFlyable);
}

void MenuGameStartMission::showTask(const Database& career) {
    const Squadron& squadron = career.playerSquadron();
    const bool isChannel = squadron.onChannelMap != 0;
    const zel::String field = nameInLanguage(zel::arrayText(squadron.baseName));
    const Sector sector{career.calendar().dateNumber(),   isChannel,
                        {squadron.baseX, squadron.baseZ}, field,
                        {today.fightX, today.fightZ},     today.isFlyable};
    setText("line2", textOf(wording::TaskAndSky,
                            {taskText(sector.field, sector.fight, isChannel), skyText(today.sky)}));
    setText("sector", textOf(wording::SectorOf, {field}));
    setText("legend1", textOf(wording::RingOfField, {field}));
    setText("legend2", fightText(sector.field, sector.fight));
    if (menu == nullptr)
        return;
    map.take([sector](int32_t detail) {
        return SectorPainter(sector, zel::FontHandler::getFont(TownFont), detail).paint();
    });
    map.show(*menu, "map");
}

void MenuGameStartMission::showRoster(const Database& career) {
    std::vector<RosterEntry> entries;
    for (const PlannedPlane& plane : today.planes)
        entries.push_back({initialName(plane.name, NameLetters), plane.type, plane.shotdowns});
    if (!entries.empty()) {
        const PilotRecord own =
            readPilot(record.read(career), career, BookTables::instance(), career.playerPilot);
        entries.front().name = rosterName(own, NameLetters);
    }
    if (menu != nullptr)
        roster.show(*menu, entries);
}

void MenuGameStartMission::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = runningCareer();
    if (widget->getName() == "menuButton1")
        widget->reset(); // it leads nowhere and stays usable
    else if (widget->getName() == "menuButton4" && isSkipped && career != nullptr)
        skip(*career, *widget);
}

// He may have flown before he switched his machines off.
void MenuGameStartMission::skip(Database& career, zel::Widget& plate) {
    bool stays = secondPress.isDue();
    if (!stays && !flight.findReport(career, true) && lastLook.holds(flight.news().state)) {
        stays = true;
        secondPress.begin();
        const zel::String why = newsText(flight.news()) + "\n";
        setText("skip2", why + textOf(wording::SkipNotYet));
    }
    plate.setTransition(stays ? "" : "MenuGameCombatReport");
    if (stays)
        plate.reset();
}
