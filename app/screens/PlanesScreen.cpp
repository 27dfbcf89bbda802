#include "app/screens/PlanesScreen.h"

#include "app/aircraft/AircraftTable.h"
#include "app/screens/PlaneSwitches.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t MostPlaneSheets = 3;
static_assert(std::size(AircraftRows) <= size_t{PlanesPerSheet} * MostPlaneSheets);

zel::String numbered(const char* name, int32_t number) { return zel::String(name) + number; }

} // namespace

PlanesScreen::PlanesScreen(const char* menuName, bool allied)
    : ConfigurationScreen(menuName, planeSwitches(allied, 1)), allied(allied) {}

void PlanesScreen::onEnter() { sheet = 1; }

void PlanesScreen::reset() {
    std::vector<Switch> planes = planeSwitches(allied, sheet);
    for (int32_t item = 1; item <= PlanesPerSheet; ++item)
        setVisible(numbered("item", item), item <= int32_t(planes.size()));
    setSwitches(std::move(planes));
    const int32_t sheets = planeSheets(allied);
    for (int32_t other = 1; other <= MostPlaneSheets; ++other) {
        const bool exists = sheets > 1 && other <= sheets;
        setVisible(numbered("sheet", other), exists && other != sheet);
        setVisible(numbered("sheetlit", other), exists && other == sheet);
    }
    ConfigurationScreen::reset();
}

void PlanesScreen::onEvent(zel::Widget* widget, int32_t eventType) {
    for (int32_t other = 1; other <= MostPlaneSheets; ++other)
        if (widget->getName() == numbered("sheet", other)) {
            widget->reset();
            sheet = other;
        }
    ConfigurationScreen::onEvent(widget, eventType);
}
