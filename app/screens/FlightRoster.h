#pragma once

#include <vector>

#include "app/screens/RowList.h"
#include "engine/core/String.h"

/// A pilot of the flight, as the roster shows him.
struct RosterEntry {
    zel::String name;
    zel::String machine;
    int32_t shotdowns = 0; // before this flight
};

/// Who flies with the player: the numbered rows of the orders in columns, himself first, in blue.
/// Eight are in view. The element "more" says so if there are others.
class FlightRoster {
public:
    /// Shows them in the area "roster" of that menu.
    void show(zel::Menu& menu, const std::vector<RosterEntry>& entries);

private:
    RowList rows{"roster", 32, {"row"}};
};
