#include "app/screens/PilotPages.h"

#include <utility>

#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/record/Sqlite.h"

namespace {

constexpr int64_t RowsOfFrame = 2000;

} // namespace

const char* PilotPages::open(const Database& career, int32_t pilot, const zel::String& from) {
    shown = pilot;
    origin = list = from;
    isGoingBack = false;
    return pilot == career.playerPilot ? "MenuGameRecord" : "MenuGamePilot";
}

zel::String PilotPages::takeOrigin() { return std::exchange(origin, zel::String()); }

int32_t PilotPages::takeReturn(const zel::String& screen) {
    hasReadAll = false;
    return std::exchange(isGoingBack, false) && screen == list ? shown : -1;
}

void PilotPages::readOn(const Database& career) {
    if (hasReadAll)
        return;
    SqliteFile& tables = record.read(career);
    hasReadAll = rows.gather(tables, RowsOfFrame) || tables.failed();
}
