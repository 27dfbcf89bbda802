#include "app/screens/OwnStandIn.h"

#include "app/mission/Configuration.h"
#include "app/mission/DailyMission.h"
#include "app/mission/SimulatorChecks.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/UserDirectory.h"

namespace {

constexpr const char* FolderName = "Stand-in";

standin::FlightOptions& flightOptions() {
    static standin::FlightOptions options = [] {
        standin::FlightOptions atFirst;
        atFirst.delay = 6; // seconds, in which the player reads what he waits for
        return atFirst;
    }();
    return options;
}

} // namespace

zel::String OwnStandIn::folder() {
    return zel::system::absolutePath(zel::getUserDirectory() + FolderName);
}

bool OwnStandIn::isChosen() {
    const zel::String chosen = Configuration::get(SimulatorKey, "");
    if (chosen.empty())
        return false;
    const zel::String own = folder();
    const zel::String path = zel::system::canonicalPath(chosen);
    return chosen == own || (!path.empty() && path == zel::system::canonicalPath(own));
}

bool OwnStandIn::make(tools::Finding& finding) {
    if (!standin::makeSimulatorFolder(folder(), finding))
        return false;
    // A full disk or a power cut may have left an empty startup.cfg.
    return checkSimulatorIn(folder()).textLog == TextLog::On ||
           standin::writeStartup(folder(), finding);
}

void OwnStandIn::setOptions(const standin::FlightOptions& options) { flightOptions() = options; }

void OwnStandIn::follow() {
    failure = {};
    if (!isChosen()) {
        flights.reset();
        return;
    }
    if (!make(failure))
        zel::log(failure.text(), "OwnStandIn", zel::LogError);
    else if (flights == nullptr)
        flights = std::make_unique<standin::BackgroundFlights>(folder(), flightOptions());
}

zel::String OwnStandIn::trouble() const {
    tools::Finding finding = failure;
    if (finding.message.empty() && flights != nullptr)
        finding = flights->refusal(MissionFileName);
    finding.file.erase(0, finding.file.find_last_of("\\/") + 1); // its folder fills the page
    return finding.text();
}
