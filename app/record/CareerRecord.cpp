#include "app/record/CareerRecord.h"

#include <utility>

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "app/record/KeptRecords.h"
#include "app/record/OrdersTable.h"
#include "app/record/RecordSeal.h"
#include "app/record/RecordSearch.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"

namespace {

void logRecord(const zel::String& message) { zel::log(message, "Record", zel::LogWarning); }

int32_t today(const Database& career) { return career.calendar().dateNumber(); }

} // namespace

CareerRecord::~CareerRecord() { static_cast<void>(close()); }

bool CareerRecord::close() {
    file.close();
    const bool isFile = storage == Storage::File && !isCopy;
    const bool isClosed = !isFile || !hasCompanions(path);
    if (!isClosed)
        logRecord("Another program has " + path + " open");
    else if (isFile)
        sealRecord(path);
    writer.reset();
    events = {};
    rowsWait = false;
    knownGaps.clear();
    orders = {};
    storage = Storage::None;
    folder = nullptr;
    isCopy = false;
    return isClosed;
}

void CareerRecord::reopen(const Database& career, const char* newFolder) {
    folder = newFolder;
    if (storage == Storage::File)
        attach(career);
}

zel::String CareerRecord::recordPath() const {
    const zel::String name =
        zel::String(folder != nullptr ? folder : CurrentFolder) + "/" + RecordFileName;
    return zel::system::absolutePath(zel::getUserDirectory() + name);
}

void CareerRecord::onCareerBegun(const Database& career) {
    static_cast<void>(close()); // nothing is moved
    storage = Storage::Memory;
    inTheWay = RecordState::OtherCareer;
    lastSave = {{}, today(career)};
    mark = {};
    for (const Squadron& squadron : career.squadrons)
        for (const int32_t pilot : squadron.slots)
            if (career.isPilot(pilot))
                onPosting(career, {PostingKind::Joined, PostingCause::Start, pilot, -1, -1, {}});
    onBaseChange(career);
}

void CareerRecord::onCareerLoaded(const Database& career) {
    static_cast<void>(close()); // nothing is moved
    lastSave = {career.saveCheck.checksum, today(career)};
    attach(career);
    if (storage == Storage::File)
        orders.takeUp(file, career, lastSave.date);
}

/// Connects the career with its file.
void CareerRecord::attach(const Database& career) {
    writer.reset();
    path = recordPath();
    isCopy = career.isReadOnly;
    const RecordState state = isCopy && zel::system::fileStatus(path).exists
                                  ? openRecordCopy(file, path, career.careerNumber)
                                  : openRecord(file, path, career.careerNumber);
    if (state == RecordState::Unusable)
        return giveUp();
    if (state == RecordState::Ready)
        mark = findPage(file, lastSave, career);
    if (state == RecordState::Ready && mark.isOwn)
        return connect();
    inTheWay = state;
    const int32_t orderedDay = state == RecordState::OtherCareer ? lastUnreported(file) : 0;
    if (orderedDay > 0)
        logRecord(zel::String("The orders of ") + orderedDay +
                  " are void: they are of another career");
    if (!career.isReadOnly && attachOther(career))
        return;
    if (state == RecordState::Ready)
        return connect();
    file.close();
    startOver(state);
}

/// Looks for the career's record among those that were moved away. A record of a different timeline
/// is as useless as the one in place.
bool CareerRecord::attachOther(const Database& career) {
    const auto found = findRecord(recordPath(), career, lastSave, inTheWay == RecordState::Ready);
    if (!found)
        return false;
    path = found->path;
    mark = found->mark;
    reopenRecord(file, path) ? connect() : giveUp();
    return true;
}

/// REQUIRES: the file is open, and `mark` the page in it.
void CareerRecord::connect() {
    storage = Storage::File;
    noteGaps();
    if (file.failed())
        giveUp();
}

void CareerRecord::noteGaps() {
    knownGaps = gapsUpTo(file, mark);
    if (mark.isOwn || file.failed())
        return;
    events.gaps = {{mark.date, lastSave.date}};
    knownGaps.push_back(events.gaps.front());
    logRecord(zel::String("The record of the war has nothing from ") + mark.date + " to " +
              lastSave.date);
}

/// The career goes on with a record that holds nothing from before.
void CareerRecord::startOver(RecordState why) {
    storage = Storage::Memory;
    inTheWay = why;
    mark = {};
    if (lastSave.checksum.empty())
        return; // it began in this run: the events hold all of it
    events.gaps = {{FirstDayOfCareer, lastSave.date}};
    knownGaps = events.gaps;
    logRecord(zel::String("The record of the war ") + recordStateTexts(why).text +
              ": it has nothing before " + lastSave.date);
}

/// REQUIRES: the file has failed.
void CareerRecord::giveUp() {
    const bool isDamaged = file.isDamaged() && (isCopy || isRecordDamaged(path));
    logRecord("The record of the war can't be used (" + path + ": " + file.problem() +
              "); the career goes on, and the next save tries again");
    file.close();
    writer.reset();
    storage = Storage::Unusable;
    if (isDamaged)
        startOver(path == recordPath() ? RecordState::Damaged : inTheWay);
}

/// In a career's folder the file has a temporary name until the save is in place: a save that is
/// never completed leaves no record without a career. A separate folder is a draft itself and needs
/// none.
bool CareerRecord::makeFile(const Database& career) {
    file.close();
    writer.reset();
    path = recordPath();
    if (folder == nullptr || zel::system::fileStatus(path).exists)
        path = freeRecordPath(path, RecordDraft);
    mark = {};
    const bool isMade = createRecord(file, path) && file.begin();
    if (isMade)
        writeFoundations(file, career, WINGTALLY_VERSION);
    else
        dropFile();
    return isMade;
}

/// The file that this save has made can't be completed.
void CareerRecord::dropFile() {
    giveUp();
    removeRecord(path);
    storage = Storage::Memory;
}

SaveMatch CareerRecord::matchSave(const Database& career, const CheckedBytes& content,
                                  int32_t& careerNumber) {
    const bool isOpen = storage == Storage::File && !file.failed();
    return matchRecords(recordPath(), isOpen ? &file : nullptr, career.isReadOnly, content,
                        careerNumber);
}

bool CareerRecord::onSaving(const Database& career, std::string_view content) {
    if (storage == Storage::File && file.failed())
        giveUp();
    if (storage == Storage::Unusable)
        attach(career);
    const bool isNew = storage == Storage::Memory;
    if (storage == Storage::None || storage == Storage::Unusable || (isNew && !makeFile(career)))
        return false;
    writeEvents(career);
    orders.save(file, lastSave.date);
    const SavedPage page = {checksumOf(content), today(career)};
    const PageMark added = addPage(file, page);
    if (!file.commit()) {
        isNew ? dropFile() : giveUp();
        return false;
    }
    storage = Storage::File;
    lastSave = page;
    mark = added;
    events.clear();
    writer.reset();
    rowsWait = false;
    return true;
}

void CareerRecord::onSaved(const Database&) {
    if (storage == Storage::File && path != recordPath())
        takeName();
    if (storage == Storage::File && path == recordPath())
        removeRecordDrafts(path);
}

/// Gives the file the record's name. What has the name is kept under another one.
void CareerRecord::takeName() {
    const zel::String name = recordPath();
    file.close();
    bool isFree = !zel::system::fileStatus(name).exists ||
                  (inTheWay == RecordState::Ready && keepReplaced(name));
    if (!isFree) {
        const zel::String kept = freeRecordPath(name, recordStateTexts(inTheWay).ending);
        isFree = moveRecord(name, kept);
        logRecord(name + " " + recordStateTexts(inTheWay).text +
                  (isFree ? "; it is kept as " + kept : zel::String(" and can't be moved")));
    }
    if (isFree && moveRecord(path, name))
        path = name;
    if (!reopenRecord(file, path))
        giveUp();
}

/// What another program has added since is cut off, as the save replaces that program's save.
void CareerRecord::beginWriting(const Database& career) {
    writer.reset();
    beginRecord(file);
    if (!hasPage(file, mark) && !file.failed()) {
        mark = findPage(file, lastSave, career);
        noteGaps();
    }
    if (endsWith(file, mark))
        return;
    cutRecord(file, mark);
    cutOrders(file, lastSave.date);
}

void CareerRecord::writeEvents(const Database& career) {
    if (!file.isInTransaction())
        beginWriting(career);
    writer.write(file, career, events);
}

bool CareerRecord::keep(const Database& career, MissionOrders kept) {
    orders.replace(std::move(kept));
    if (career.isReadOnly)
        return false;
    if (storage == Storage::File && file.failed())
        giveUp();
    if (storage == Storage::Unusable)
        attach(career);
    const bool isNew = storage == Storage::Memory;
    if (isNew && lastSave.checksum.empty())
        return true; // without a save there is nothing to come back to
    if (storage == Storage::Unusable || (isNew && !makeFile(career)))
        return false;
    if (isNew && !file.commit()) {
        dropFile();
        return false;
    }
    storage = Storage::File;
    // The save that it belongs to is in its place already.
    if (isNew && path != recordPath())
        takeName();
    if (storage != Storage::File)
        return false;
    // What the open transaction holds belongs to a save that may never be made.
    rowsWait = rowsWait || file.isInTransaction();
    writer.reset();
    const bool areKept = orders.commit(file);
    if (!areKept)
        giveUp();
    return areKept;
}

bool CareerRecord::isReported(const zel::String& log, const zel::String& hash) {
    return events.hasFlight(log, hash) ||
           (storage == Storage::File && hasFlight(file, mark, log, hash));
}

SqliteFile& CareerRecord::read(const Database& career) {
    if (storage == Storage::File) {
        const bool isAsSaved = !file.isInTransaction() && events.empty() && endsWith(file, mark);
        if (!isAsSaved)
            writeEvents(career);
        if (!file.failed())
            return file;
        giveUp();
    }
    if (!file.isOpen() || file.failed())
        openForReading(career);
    if (!file.failed())
        writeEvents(career);
    return file;
}

/// Makes tables in memory. On error: the file has failed.
void CareerRecord::openForReading(const Database& career) {
    mark = {};
    if (storage == Storage::Unusable) {
        path = recordPath();
        const RecordState state = openRecordCopy(file, path, career.careerNumber);
        if (state == RecordState::Ready) {
            mark = findPage(file, lastSave, career);
            noteGaps();
        }
        if (state == RecordState::Ready || state == RecordState::Unusable)
            return;
    }
    writer.reset();
    createRecordInMemory(file);
    file.begin();
    writeFoundations(file, career, WINGTALLY_VERSION);
}

void CareerRecord::onPosting(const Database& career, const Posting& posting) {
    events.add(career, posting);
    if (posting.kind == PostingKind::Transferred && posting.pilot == career.playerPilot)
        onBaseChange(career);
}

void CareerRecord::onFlight(const Database& career, const FlownMission& mission) {
    events.add(career, mission);
    orders = {};
}
