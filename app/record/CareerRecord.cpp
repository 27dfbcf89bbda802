#include "app/record/CareerRecord.h"

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/record/RecordSchema.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"

namespace {

void logRecord(const zel::String& message) { zel::log(message, "Record", zel::LogWarning); }

int32_t today(const Database& career) { return career.calendar().dateNumber(); }

const char* stateText(RecordState state) {
    switch (state) {
    case RecordState::Damaged:
        return "is damaged";
    case RecordState::OtherCareer:
        return "is of another career";
    case RecordState::Newer:
        return "was written by a later version";
    default:
        return "is missing";
    }
}

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
    knownGaps.clear();
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
}

/// Connects the career with its file. isFinal: what isn't in the save is removed at once.
void CareerRecord::attach(const Database& career, bool isFinal) {
    file.close();
    writer.reset();
    const RecordState state = openRecord(file, recordPath(), career.careerNumber);
    if (state == RecordState::Ready)
        return cut(isFinal);
    if (state == RecordState::Unusable)
        return giveUp();
    file.close();
    if (state != RecordState::Missing)
        ownsFile = moveAside(recordPath(), state);
    startOver(state);
}

void CareerRecord::cut(bool isFinal) {
    place = Place::File;
    file.begin();
    const int32_t lacking = cutRecord(file, lastSave);
    if (isFinal)
        file.commit();
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
    events = {};
    writer.reset();
}

void CareerRecord::writeEvents(const Database& career) {
    if (!file.isInTransaction())
        file.begin();
    writer.write(file, career, events);
}

/// The rows go into the transaction that the save commits: then the player doesn't wait for them.
void CareerRecord::onWarAdvanced(const Database& career) {
    if (place == Place::File)
        writeEvents(career);
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
    events.flights.push_back({today(career), mission, career.player().squadron,
                              zel::String(zel::arrayText(squadron.baseName)),
                              squadron.onChannelMap != 0});
}
