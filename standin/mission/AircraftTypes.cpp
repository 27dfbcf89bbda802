#include "standin/mission/AircraftTypes.h"

#include <algorithm>

#include "engine/core/String.h"

namespace standin {

int32_t findAircraft(std::string_view id) {
    const std::vector<Aircraft>& rows = AircraftTable::rows();
    const auto found = std::find_if(rows.begin(), rows.end(), [id](const Aircraft& aircraft) {
        return zel::equalsNoCase(id, aircraft.identifier);
    });
    return found != rows.end() ? static_cast<int32_t>(found - rows.begin()) : -1;
}

const StandInFigures& aircraftType(int32_t index) { return AircraftTable::rows()[index].standIn; }

} // namespace standin
