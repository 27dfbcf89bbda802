#include "app/screens/MenuGameTopAces.h"

#include "app/book/BookTables.h"
#include "app/career/Database.h"
#include "app/screens/PilotPages.h"
#include "engine/graphics/Text.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t Aces = 10;
constexpr int32_t AceStep = 34;    // design pixels
constexpr int32_t NameWidth = 364; // likewise, of the name in its row
constexpr const char* OwnRow = "pilot.own";

} // namespace

MenuGameTopAces::MenuGameTopAces(PilotPages& pages)
    : CareerScreen("MenuGameTopAces"), pages(pages),
      rows("pilot", AceStep, {"row", "place", "victories", "missions", "real"}) {}

void MenuGameTopAces::onEnter() {
    const Database* career = runningCareer();
    aces = career != nullptr ? aceRows(*career, BookTables::instance(), Aces)
                             : std::vector<StandingRow>();
    rows.resize(*menu, aces.size());
    for (size_t i = 0; i < aces.size(); ++i)
        showAce(*career, i);
    for (const char* head : {"head1", "head2", "head3", "head4"})
        setVisible(head, !aces.empty());
    setVisible("pilot.none", career != nullptr && aces.empty());
    for (const char* part : {"pilot.own", "pilot.ownVictories", "pilot.ownMissions"})
        setVisible(part, career != nullptr);
    if (career == nullptr)
        return;
    showOwn(*career);
    const int32_t back = pages.takeReturn("MenuGameTopAces");
    if (back == career->playerPilot)
        setFocus(OwnRow);
    for (size_t i = 0; i < aces.size(); ++i)
        if (aces[i].pilot == back)
            setFocus(rows.name("row", i));
}

void MenuGameTopAces::showAce(const Database& career, size_t index) {
    const StandingRow& ace = aces[index];
    setWidgetKind(rows.name("row", index), ace.isOwn ? "ownacerow" : "acerow");
    const zel::Widget* row = rows.find(*menu, "row", index);
    const zel::String name = markedName(ace);
    const bool isTooLong =
        row != nullptr && zel::Text::widthOf(row->getFont(), name.view()) > NameWidth;
    setText(rows.name("row", index), isTooLong ? shortMarkedName(ace) : name);
    setText(rows.name("place", index), placeNumber(ace));
    setText(rows.name("victories", index), ace.victories);
    setText(rows.name("missions", index), ace.missions);
    setText(rows.name("real", index), realScoreText(ace, career.calendar().dateNumber()));
}

void MenuGameTopAces::showOwn(const Database& career) {
    const StandingRow own = standingOf(career, BookTables::instance(), career.playerPilot);
    setText(OwnRow, placeText(own));
    setText("pilot.ownVictories", own.victories);
    setText("pilot.ownMissions", own.missions);
}

void MenuGameTopAces::update() {
    if (const Database* career = runningCareer())
        pages.readOn(*career);
}

void MenuGameTopAces::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    const int32_t row = rows.indexOf(*widget);
    if (row >= 0)
        setTransition(pages.open(*career, aces[row].pilot, "MenuGameTopAces"));
    else if (widget->getName() == OwnRow)
        setTransition(pages.open(*career, career->playerPilot, "MenuGameTopAces"));
}
