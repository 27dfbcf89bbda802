#include "app/screens/MenuGameMain.h"

#include "app/book/BookTables.h"
#include "app/book/Condolence.h"
#include "app/book/PilotRecord.h"
#include "app/book/WarPart.h"
#include "app/career/Bases.h"
#include "app/career/CareerLock.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/record/RecordText.h"
#include "app/report/Flight.h"
#include "app/screens/MapSheets.h"
#include "app/screens/ScreenWording.h"
#include "app/war/SquadronSimulator.h"
#include "engine/menu/widgets/Widget.h"

void MenuGameMain::onEnter() {
    Database* career = runningCareer();
    if (career == nullptr)
        return;
    setOpen(true);
    keepPlayerOnAllowedMap(*career);
    onEntered();
}

void MenuGameMain::onEntered() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    noteSuccession(*career);
    showDate();
    showOrders(*career);
    setActive("menuButton1", !isWarOver(*career));
    showSquadron();
    showSheet(*career);
    showPilot(*career);
    setText("note", career->isReadOnly ? heldElsewhereText(*career->lock) : note(*career));
}

void MenuGameMain::showPilot(const Database& career) {
    SqliteFile& tables = record.read(career);
    const PilotRecord player =
        readPilot(tables, career, BookTables::instance(), career.playerPilot);
    const zel::String title = titleOf(player.honours, player.name);
    // In a later run the record knows of it, and it is news until he has flown.
    const int32_t fallen = predecessor >= 0 || !player.flights.empty()
                               ? predecessor
                               : predecessorOf(tables, career, career.playerPilot);
    if (career.isPilot(fallen))
        setText("pilot",
                textOf(wording::Successor, {title, zel::arrayText(career.pilot(fallen).name)}));
    else
        setText("pilot", title);
    setText("figures",
            textOf(wording::BookFigures, {countText(wording::Victories, player.victoryCount),
                                          countText(wording::Missions, player.missions)}));
    const WarPart war = readWarPart(tables, career);
    setText("count", flightOfText(war, true));
    strip.show(*menu, "strip", "strip_office", war);
    setActive("strip", false); // not a button
}

void MenuGameMain::showOrders(const Database& career) {
    const MissionOrders* orders = flight.orders(career);
    areOrdersOut = orders != nullptr && orders->isFlyable;
    setVisible("awaitReport", areOrdersOut);
    setText("orders", areOrdersOut
                          ? textOf(wording::OrdersAreOut, {dateInLanguage(career.calendar())})
                          : zel::String());
    setText("menuButton1", areOrdersOut ? textOf(wording::NewOrders) : missionButtonText(career));
}

zel::String MenuGameMain::note(const Database& career) {
    const MissionOrders* orders = areOrdersOut ? flight.orders(career) : nullptr;
    if (orders != nullptr && !flight.areOrdersKept())
        return textOf(wording::OrdersUnkept);
    if (const OrdersFile file = orders != nullptr ? fileOf(*orders) : OrdersFile::Same;
        file != OrdersFile::Same)
        return textOf(wording::OrdersFaults[int32_t(file) - 1]);
    if (const int32_t date = flight.voidOrders(career); date > career.calendar().dateNumber())
        return textOf(wording::OrdersVoid, {dateInLanguage(Calendar::ofNumber(date))});
    return record.gaps().empty() ? zel::String() : recordGapText(record.gaps().back());
}

// The map on the desk is of the sector over which the squadron flies.
void MenuGameMain::showSheet(const Database& career) {
    const char* kind = sheetOfBase(zel::arrayText(career.playerSquadron().baseName));
    const bool hasSheet = kind != nullptr && getWidget("sheet") != nullptr;
    if (hasSheet)
        menu->setWidgetKind("sheet", kind);
    setVisible("sheet", hasSheet);
    setActive("sheet", false); // not a button
}

// A fallen player's successor takes over between two visits; the career itself doesn't record whom
// he succeeds.
void MenuGameMain::noteSuccession(const Database& career) {
    if (careerNumber != career.careerNumber)
        predecessor = -1;
    else if (pilot != career.playerPilot)
        predecessor = career.isPilot(pilot) && career.pilot(pilot).alive == 0 ? pilot : -1;
    careerNumber = career.careerNumber;
    pilot = career.playerPilot;
}

void MenuGameMain::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (runningCareer() == nullptr)
        return;
    const zel::String name = widget->getName();
    // The search for an invitation draws, and new orders for the same day leave the career alone.
    if (name == "menuButton1")
        setTransition(!areOrdersOut && SquadronSimulator::invitationDue() ? "MenuGameInvite"
                                                                          : "MenuGameStartMission");
    else if (name == "menuButton4" || name == "menuBack")
        saveBefore(*widget);
}
