#include "app/screens/MenuGameViewSquadron.h"

#include "app/book/BookTables.h"
#include "app/career/Database.h"
#include "app/screens/PilotPages.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t RollStep = 42; // design pixels

} // namespace

MenuGameViewSquadron::MenuGameViewSquadron(PilotPages& pages)
    : CareerScreen("MenuGameViewSquadron"), pages(pages), rows("pilot", RollStep, {"row"}) {}

void MenuGameViewSquadron::onEnter() {
    const Database* career = runningCareer();
    roster = career != nullptr ? rosterRows(*career, BookTables::instance())
                               : std::vector<StandingRow>();
    rows.resize(*menu, roster.size());
    const int32_t back = pages.takeReturn("MenuGameViewSquadron");
    for (size_t i = 0; i < roster.size(); ++i) {
        const zel::String name = rows.name("row", i);
        setText(name, rollLine(roster[i]));
        setWidgetKind(name, roster[i].isOwn ? "ownrollrow" : "rollrow");
        if (roster[i].pilot == back)
            setFocus(name);
    }
    if (career != nullptr)
        showSquadron();
}

void MenuGameViewSquadron::update() {
    if (const Database* career = runningCareer())
        pages.readOn(*career);
}

void MenuGameViewSquadron::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const Database* career = runningCareer();
    const int32_t row = rows.indexOf(*widget);
    if (career != nullptr && row >= 0)
        setTransition(pages.open(*career, roster[row].pilot, "MenuGameViewSquadron"));
}
