#include "app/screens/FlightRoster.h"

#include <algorithm>
#include <cstdio>

#include "app/book/LogBookText.h"
#include "app/book/OrdersWording.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr uint32_t BlueInk = 0xFF23406B;
constexpr size_t NameColumn = 26; // letters, with the blank after it
constexpr size_t MachineColumn = 16;
constexpr int32_t VictoryColumn = 5;
constexpr int32_t RowsInView = 8;

zel::String rowText(size_t number, const RosterEntry& entry) {
    char place[16];
    std::snprintf(place, sizeof place, "%2d. ", int32_t(number));
    char score[16];
    std::snprintf(score, sizeof score, "%*d", VictoryColumn, entry.shotdowns);
    return place + column(zel::String(entry.name.view().substr(0, NameColumn - 1)), NameColumn) +
           column(machineText(entry.machine, MachineColumn - 1), MachineColumn) + score;
}

} // namespace

void FlightRoster::show(zel::Menu& menu, const std::vector<RosterEntry>& entries) {
    const size_t lines = std::max<size_t>(entries.size(), RowsInView);
    rows.resize(menu, lines);
    for (size_t i = 0; i < lines; ++i)
        menu.setText(rows.name("row", i),
                     i < entries.size() ? rowText(i + 1, entries[i]) : zel::String());
    zel::Widget* own = entries.empty() ? nullptr : rows.find(menu, "row", 0);
    for (int32_t look = 0; own != nullptr && look < zel::LookCount; ++look)
        own->setTextColor(static_cast<zel::WidgetLook>(look), BlueInk);
    const auto count = int32_t(entries.size());
    menu.setText("more", count > RowsInView ? textOf(wording::RowsOfRoster, {RowsInView, count})
                                            : zel::String());
}
