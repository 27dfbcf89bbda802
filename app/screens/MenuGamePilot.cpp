#include "app/screens/MenuGamePilot.h"

#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/career/Database.h"
#include "app/screens/HangingLines.h"
#include "app/screens/PilotPages.h"

namespace {

constexpr int32_t FileStep = 22; // design pixels

} // namespace

MenuGamePilot::MenuGamePilot(CareerRecord& record, PilotPages& pages)
    : PilotScreen("MenuGamePilot", record, pages), pages(pages),
      service("file", FileStep, {"line"}), victories("file", FileStep, {"row"}) {}

void MenuGamePilot::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr || !career->isPilot(pages.pilot()))
        return;
    const PilotRecord pilot = showPilot(*career, pages.pilot());
    setText("unit", unitOrServiceText(*career, pilot.squadron, pilot.until));
    setText("real", realText(pilot, career->calendar().dateNumber()));
    showLists(pilot, *career);
}

/// The two lists scroll together.
void MenuGamePilot::showLists(const PilotRecord& pilot, const Database& career) {
    std::vector<zel::String> lines;
    const zel::Widget* first = service.find(*menu, "line", 0);
    for (const zel::String& line : stationLines(pilot, career))
        addHangingLines(lines, first, line);
    service.resize(*menu, lines.size());
    for (size_t i = 0; i < lines.size(); ++i)
        setText(service.name("line", i), lines[i]);

    lines.clear();
    for (const PilotVictory& victory : pilot.victories)
        lines.push_back(victoryLine(victory));
    if (pilot.victoryCount == 0)
        lines.push_back(textOf(pilot.isAlive ? wording::NoAward : wording::NoVictory));
    victories.resize(*menu, lines.size());
    for (size_t i = 0; i < lines.size(); ++i)
        setText(victories.name("row", i), lines[i]);
}
