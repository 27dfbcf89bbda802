#include "app/screens/ReportPages.h"

#include "app/book/Sketch.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/report/Flight.h"
#include "app/screens/WarProgress.h"
#include "app/war/WarAdvance.h"
#include "engine/core/Log.h"

namespace {

Database* runningCareer() {
    Database* career = Database::instance();
    return career != nullptr && career->hasCareer() ? career : nullptr;
}

} // namespace

void ReportPages::enterReport() {
    isHeld = false;
    CombatReport& report = flight.report();
    const bool isNew = !report.pilots.empty();
    if (isNew) {
        chosen = 0;
        reports = report.pilots;
        hasReport = true;
    }
    report.clear();
}

std::optional<RecordedFlight> ReportPages::shown() const {
    const Database* career = runningCareer();
    if (career == nullptr)
        return std::nullopt;
    if (isFromBook()) {
        SqliteFile& tables = record.read(*career);
        std::optional<RecordedFlight> found = readFlight(tables, chosen);
        if (tables.failed())
            zel::log("Flight " + zel::String(chosen) + " can't be read: " + tables.problem(),
                     "ReportPages", zel::LogWarning);
        return found;
    }
    if (!hasReport)
        return std::nullopt;
    const Squadron& squadron = career->playerSquadron();
    RecordedFlight today;
    today.date = career->calendar().dateNumber();
    today.pilot = career->playerPilot;
    today.squadron = career->player().squadron;
    today.base = zel::arrayText(squadron.baseName);
    today.onChannelMap = squadron.onChannelMap != 0;
    today.mission = flight.flown();
    today.mission.reports = reports;
    return today;
}

bool ReportPages::base(const RecordedFlight& of, MapPoint& place) const {
    const Database* career = runningCareer();
    if (career == nullptr)
        return false;
    if (isFromBook())
        return baseOf(record.read(*career), of, place);
    place = {career->playerSquadron().baseX, career->playerSquadron().baseZ};
    return true;
}

void ReportPages::endDay() {
    Database* career = runningCareer();
    if (std::exchange(isHeld, false) || career == nullptr)
        return;
    hasReport = false;
    const int32_t pilot = career->playerPilot;
    const WarProgress progress;
    advanceWar(*career, &flight.generator());
    fallen = career->pilot(pilot).alive == 0 ? pilot : -1;
}
