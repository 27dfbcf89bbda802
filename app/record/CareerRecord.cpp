#include "app/record/CareerRecord.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/record/KeptRecords.h"
#include "app/record/OrdersTable.h"
#include "app/record/RecordSchema.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"

namespace {

void logRecord(const zel::String& message) { zel::log(message, "Record", zel::LogWarning); }

int32_t today(const Database& career) { return career.calendar().dateNumber(); }

/// Moves a record to a name that says why. False if that can't be.
bool moveAside(const zel::String& path, RecordState why) {
    const zel::String moved = setRecordAside(path, why);
    logRecord(moved.empty() ? path + " " + stateText(why) + " and can't be moved"
                            : path + " " + stateText(why) + "; it is kept as " + moved);
    return !moved.empty();
}

} // namespace

void CareerRecord::close() {
    file.close();
    writer.reset();
    events = {};
    rowsWait = false;
    isCut = true;
    knownGaps.clear();
    orders.reset();
    ordersWait = false;
    voidDate = 0;
    place = Place::None;
    folder = nullptr;
}

void CareerRecord::release() {
    file.close();
    writer.reset();
}

void CareerRecord::reopen(const Database& career, const char* newFolder) {
    folder = newFolder;
    if (place == Place::File)
        attach(career, true);
}

zel::String CareerRecord::recordPath() const {
    const zel::String name =
        folder != nullptr ? zel::String(folder) + "/record.db" : RecordFileName;
    return zel::system::absolutePath(zel::getUserDirectory() + name);
}

void CareerRecord::onCareerBegun(const Database& career) {
    close();
    place = Place::Memory;
    ownsFile = false;
    lastSave = {{}, today(career)};
    for (const Squadron& squadron : career.squadrons)
        for (const int32_t pilot : squadron.slots)
            if (career.isPilot(pilot))
                onPosting(career, {PostingKind::Joined, PostingCause::Start, pilot, -1, -1, {}});
    onBaseChange(career);
}

void CareerRecord::onCareerLoaded(const Database& career, const zel::String& loaded) {
    close();
    ownsFile = true;
    lastSave = {checksumOfFile(loaded), today(career)};
    // Going back to another file, as to the save before, must not cost the save its own rows yet.
    attach(career, loaded == zel::getUserDirectory() + SaveFileName);
    if (place == Place::File)
        takeUpOrders(career);
}

/// Connects the career with its file. isFinal: what isn't in the save is removed at once.
void CareerRecord::attach(const Database& career, bool isFinal) {
    file.close();
    writer.reset();
    RecordState state = openRecord(file, recordPath(), career.careerNumber);
    if (state == RecordState::Ready && isFinal)
        state = preferRestored(file, recordPath(), career.careerNumber, lastSave.checksum);
    if (state == RecordState::Ready)
        return cut(isFinal);
    if (state == RecordState::Unusable)
        return giveUp();
    const int32_t orderedDay = state == RecordState::OtherCareer ? lastUnreported(file) : 0;
    if (orderedDay > 0)
        logRecord(zel::String("The orders of ") + orderedDay +
                  " are void: they are of another career");
    file.close();
    if (state != RecordState::Missing)
        ownsFile = moveAside(recordPath(), state);
    startOver(state);
}

void CareerRecord::cut(bool isFinal) {
    place = Place::File;
    const int32_t orderedDay = lastUnreported(file);
    voidDate = orderedDay != lastSave.date ? orderedDay : 0;
    file.begin();
    const int32_t lacking = cutRecord(file, lastSave);
    if (isFinal)
        file.commit();
    isCut = isFinal;
    knownGaps.clear();
    for (SqliteStatement gap(file, "SELECT since, until FROM gap ORDER BY id"); gap.next();)
        knownGaps.push_back({gap.integer(0), gap.integer(1)});
    if (file.failed())
        return giveUp();
    if (lacking == lastSave.date)
        return;
    events.gaps = {{lacking, lastSave.date}};
    knownGaps.push_back(events.gaps.front());
    logRecord(zel::String("The record of the war has nothing from ") + lacking + " to " +
              lastSave.date);
}

/// The orders of the save's day, if the career can have flown them.
void CareerRecord::takeUpOrders(const Database& career) {
    if (voidDate > lastSave.date)
        logRecord(zel::String("The orders of ") + voidDate + " are void: the career is at " +
                  lastSave.date);
    std::optional<MissionOrders> found = readOrders(file, lastSave.date);
    if (!found)
        return;
    const auto isHis = [&](const PlannedPlane& plane) {
        return career.isPilot(plane.pilot) &&
               plane.name == zel::arrayText(career.pilot(plane.pilot).name);
    };
    const std::vector<PlannedPlane>& planes = found->planes;
    if (planes.empty() || planes.front().pilot != career.playerPilot ||
        !std::all_of(planes.begin(), planes.end(), isHis)) {
        voidDate = lastSave.date;
        return logRecord(zel::String("The orders of ") + voidDate +
                         " are void: their pilots aren't those of the career");
    }
    found->careerNumber = career.careerNumber;
    orders = std::make_shared<const MissionOrders>(std::move(*found));
}

/// The career goes on with a record that holds nothing of what was before.
void CareerRecord::startOver(RecordState why) {
    place = Place::Memory;
    if (lastSave.checksum.empty())
        return; // it began in this run: all of it is among the events
    events.gaps = {{FirstDayOfWar, lastSave.date}};
    knownGaps = events.gaps;
    logRecord(zel::String("The record of the war ") + stateText(why) + ": it has nothing before " +
              lastSave.date);
}

/// REQUIRES: the file has failed.
void CareerRecord::giveUp() {
    logRecord("The record of the war can't be used (" + recordPath() + ": " + file.problem() +
              "); the career goes on, and the next save tries again");
    file.close();
    writer.reset();
    place = Place::Unusable;
}

bool CareerRecord::makeFile(const Database& career) {
    file.close();
    writer.reset();
    if (!ownsFile && zel::system::fileStatus(recordPath()).exists &&
        !moveAside(recordPath(), RecordState::OtherCareer))
        return false;
    const bool isMade = createRecord(file, recordPath()) && file.begin();
    if (isMade)
        writeFoundations(file, career, WINGTALLY_VERSION);
    else
        giveUp();
    return isMade;
}

void CareerRecord::onSaving(const Database& career, std::string_view content) {
    if (place == Place::File && file.failed())
        giveUp();
    if (place == Place::Unusable)
        attach(career, false);
    const bool isNew = place == Place::Memory;
    if (place == Place::None || place == Place::Unusable || (isNew && !makeFile(career)))
        return;
    writeEvents(career);
    if (orders != nullptr && (ordersWait || !isCut))
        writeOrders(file, *orders);
    const SavedPage page = {checksumOf(content), today(career)};
    addPage(file, page);
    if (!file.commit()) {
        giveUp();
        if (isNew)
            zel::system::removeFile(recordPath());
        place = isNew ? Place::Memory : Place::Unusable;
        return;
    }
    place = Place::File;
    ownsFile = true;
    lastSave = page;
    isCut = true;
    events = {};
    writer.reset();
    rowsWait = false;
    ordersWait = false;
}

void CareerRecord::writeEvents(const Database& career) {
    if (!file.isInTransaction()) {
        file.begin();
        if (!isCut)
            cutRecord(file, lastSave);
    }
    writer.write(file, career, events);
}

/// The rows go into the transaction that the save commits: then the player doesn't wait for them.
/// Once orders have rolled them back they wait in memory, or many missions without a save would
/// insert the same rows again and again.
void CareerRecord::onWarAdvanced(const Database& career) {
    if (place == Place::File && !rowsWait)
        writeEvents(career);
}

std::shared_ptr<const MissionOrders> CareerRecord::ordersOut(const Database& career) const {
    const bool areOut = orders != nullptr && orders->careerNumber == career.careerNumber &&
                        orders->date == today(career);
    return areOut ? orders : nullptr;
}

bool CareerRecord::keep(const Database& career, MissionOrders kept) {
    orders = std::make_shared<const MissionOrders>(std::move(kept));
    ordersWait = true;
    if (place == Place::File && file.failed())
        giveUp();
    if (place == Place::Unusable)
        attach(career, false);
    voidDate = 0;
    const bool isNew = place == Place::Memory;
    if (isNew && lastSave.checksum.empty())
        return true; // without a save there is nothing to come back to
    if (place == Place::Unusable || (isNew && !makeFile(career)))
        return false;
    const bool isThere = !isNew || file.commit();
    if (isThere && commitOrders()) {
        place = Place::File;
        ownsFile = true;
        return true;
    }
    if (!isThere)
        giveUp();
    if (isNew) {
        zel::system::removeFile(recordPath());
        place = Place::Memory;
    }
    return false;
}

/// What the open transaction holds belongs to a save that may never be made: only the orders are
/// committed. The file's other commits do without a sync.
bool CareerRecord::commitOrders() {
    rowsWait = rowsWait || file.isInTransaction();
    writer.reset();
    file.rollback();
    file.run("PRAGMA synchronous = FULL");
    file.begin();
    writeOrders(file, *orders);
    if (!file.commit()) {
        giveUp();
        return false;
    }
    file.run("PRAGMA synchronous = NORMAL");
    ordersWait = false;
    return true;
}

bool CareerRecord::isReported(const zel::String& log, const zel::String& hash) {
    for (const RecordEvents::DatedFlight& flown : events.flights)
        if (flown.log == log && flown.logHash == hash)
            return true;
    if (place != Place::File)
        return false;
    SqliteStatement row(file, "SELECT 1 FROM flight WHERE log = ? AND log_hash = ?");
    return row.with(log, hash).next();
}

int32_t CareerRecord::voidOrders(const Database& career) const {
    return orders != nullptr && ordersOut(career) == nullptr ? orders->date : voidDate;
}

SqliteFile& CareerRecord::read(const Database& career) {
    if (place == Place::File) {
        writeEvents(career);
        if (!file.failed())
            return file;
        giveUp();
    }
    if (!file.isOpen()) {
        file.openInMemory();
        migrateRecord(file);
        file.begin();
        writeFoundations(file, career, WINGTALLY_VERSION);
    }
    writeEvents(career);
    return file;
}

void CareerRecord::onVictory(const Database& career, const Victory& victory) {
    const auto squadronOf = [&](int32_t pilot) {
        return pilot >= 0 ? career.pilot(pilot).squadron : -1;
    };
    const int32_t flight = victory.isSeen ? static_cast<int32_t>(events.flights.size()) - 1 : -1;
    events.victories.push_back(
        {today(career), victory, squadronOf(victory.victor), squadronOf(victory.victim), flight});
}

void CareerRecord::onPosting(const Database& career, const Posting& posting) {
    events.postings.push_back({today(career), posting, career.pilot(posting.pilot).squadron});
    if (posting.kind == PostingKind::Transferred && posting.pilot == career.playerPilot)
        onBaseChange(career);
}

void CareerRecord::onBaseChange(const Database& career) {
    const Squadron& squadron = career.playerSquadron();
    events.bases.push_back({today(career), career.player().squadron,
                            zel::String(zel::arrayText(squadron.baseName)),
                            squadron.onChannelMap != 0, squadron.baseX, squadron.baseZ});
}

void CareerRecord::onFlight(const Database& career, const FlownMission& mission) {
    const Squadron& squadron = career.playerSquadron();
    const std::string_view path = mission.log;
    events.flights.push_back(
        {today(career), mission, zel::String(path.substr(path.find_last_of("/\\") + 1)),
         checksumOfFile(mission.log), career.player().squadron,
         zel::String(zel::arrayText(squadron.baseName)), squadron.onChannelMap != 0});
    orders.reset();
    ordersWait = false;
    voidDate = 0;
}
