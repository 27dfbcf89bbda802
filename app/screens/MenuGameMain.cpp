#include "app/screens/MenuGameMain.h"

#include "app/career/Bases.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/record/RecordText.h"
#include "app/screens/MapSheets.h"
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
    setText("menuButton1", missionButtonText(*career));
    setActive("menuButton1", !isWarOver(*career));
    showSquadron();
    showSheet(*career);
    setText("pilot", playerText(*career, predecessor));
    showRecordGap();
}

void MenuGameMain::showRecordGap() {
    setText("record", record.gaps().empty() ? "" : recordGapText(record.gaps().back()));
}

// The map on the desk is of the sector over which the squadron flies.
void MenuGameMain::showSheet(const Database& career) {
    const char* kind = sheetOfBase(zel::arrayText(career.playerSquadron().baseName));
    const bool hasSheet = kind != nullptr && getWidget("sheet") != nullptr;
    if (hasSheet)
        menu->setWidgetKind("sheet", kind);
    setVisible("sheet", hasSheet);
    setActive("sheet", false); // it is no button
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
    if (name == "menuButton1")
        setTransition(SquadronSimulator::invitationDue() ? "MenuGameInvite"
                                                         : "MenuGameStartMission");
    else if (name == "menuButton4" || name == "menuBack")
        saveBefore(*widget);
}
