#include "app/book/SavedHonours.h"

#include "app/book/RecordedService.h"
#include "app/career/SaveSummary.h"
#include "app/record/Sqlite.h"
#include "engine/core/System.h"

Honours savedHonours(const zel::String& record, const SaveSummary& save, const BookTables& tables) {
    SqliteFile file;
    if (!save.isReadable || !zel::system::fileStatus(record).exists ||
        !file.open(record, SqliteFile::ReadOnly) ||
        file.number("SELECT value FROM meta WHERE key = 'career'") != save.careerNumber)
        return {};
    SavedPilot pilot;
    pilot.pilot = save.pilotIndex;
    pilot.isPlayer = save.isPlayer;
    pilot.isAlive = save.state != CareerState::Fallen;
    pilot.nation = save.nation;
    pilot.unit = save.unit;
    pilot.date = save.date.dateNumber();
    pilot.missions = save.missions;
    pilot.victories = save.victories;
    pilot.isShelved = true;
    PilotService service = readService(file, pilot);
    if (service.since != 0)
        addUnrecorded(file, pilot, service);
    return file.failed() || service.since == 0 ? Honours() : honoursOf(service, tables);
}
