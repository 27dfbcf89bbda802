#include "tools/career/Session.h"

#include <cstdio>

#include "app/book/OrdersText.h"
#include "app/book/WebPage.h"
#include "app/career/Bases.h"
#include "app/career/CareerTexts.h"
#include "app/career/SaveFile.h"
#include "app/mission/Configuration.h"
#include "app/mission/SimulatorCheck.h"
#include "app/record/RecordExport.h"
#include "app/record/RecordText.h"
#include "app/record/ShelfFolders.h"
#include "app/war/WarAdvance.h"
#include "engine/core/Language.h"
#include "engine/core/Random.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"
#include "standin/StandIn.h"
#include "tools/career/ReportLines.h"
#include "tools/career/SessionWording.h"
#include "tools/common/Print.h"

namespace {

constexpr uint32_t LookInterval = 1000; // milliseconds between two checks for a log

zel::String simulatorFolder() { return Configuration::getRofDirectory(); }

/// What the player does about it; its mark is the simulator's folder. REQUIRES: not Ready.
const Wording& adviceFor(SimulatorState state) {
    if (state == SimulatorState::NoTextLog)
        return wording::StatusNoTextLog;
    return simulatorFolder().empty() ? wording::StatusNoSimulator : wording::StatusNotThere;
}

int32_t today(const Database& career) { return career.calendar().dateNumber(); }

void print(const zel::String& line) { tools::print(stdout, line + "\n"); }

} // namespace

bool Session::fail(const zel::String& why) {
    trouble = why;
    return false;
}

void Session::say(const zel::String& line) const {
    if (!quiet)
        print(zel::system::printedText(line));
}

bool Session::sayAll(const std::vector<zel::String>& lines) const {
    for (const zel::String& line : lines)
        say(line);
    return true;
}

void Session::sayFile(const Wording& wording, const zel::String& file) const {
    if (!quiet)
        print(zel::fillMarks(zel::system::printedText(textOf(wording, {"$1"})),
                             {zel::system::printedName(file)}));
}

bool Session::needCareer() {
    return career.hasCareer() || fail("There is no career yet: begin with new or load");
}

bool Session::needSimulator() {
    const SimulatorState state = checkSimulator();
    return state == SimulatorState::Ready ||
           fail(zel::fillMarks(adviceFor(state).english, {simulatorFolder()}));
}

bool Session::needRecord() {
    return needCareer() && (keepsRecord || fail("This call keeps no record"));
}

bool Session::newCareer(const CareerStart& start) {
    Enlistment enlistment;
    if (const zel::String why = createCareer(career, BookTables::instance(), start, enlistment);
        !why.empty())
        return fail(why);
    say(serviceText(start.service));
    say(startDateText(start.year, start.month));
    say(pilotNameText(start.name.value_or(zel::String(zel::arrayText(career.player().name)))));
    beginService(career, flight.generator(), enlistment, start.year, start.month);
    progress.clear();
    return true;
}

bool Session::load() {
    const zel::String path = zel::system::absolutePath(zel::getUserDirectory() + SaveFileName);
    if (career.loadFile(SaveFileName)) {
        sayFile(wording::Loaded, path);
        return true;
    }
    zel::String why =
        "No career could be loaded from " + path + ": " + saveFaultText(career.saveCheck);
    if (hasEarlierSave(career, SaveFileName))
        why += "; pages lists the saves before it";
    else if (career.saveCheck.fault == SaveFault::Missing)
        why += "; careers lists those on the shelf";
    return fail(why);
}

bool Session::save() {
    if (!needCareer())
        return false;
    if (!shelf.save())
        return fail(shelf.problem());
    sayFile(wording::Saved, zel::system::absolutePath(zel::getUserDirectory() + SaveFileName));
    return true;
}

bool Session::status() {
    if (!needCareer())
        return false;
    const Pilot& player = career.player();
    const zel::String squadron = squadronText(career);
    say(textOf(wording::StatusDate, {dateInLanguage(career.calendar())}));
    say(textOf(player.alive == 0 ? wording::StatusFallen : wording::StatusPilot,
               {zel::arrayText(player.name)}));
    say(squadron.empty() ? textOf(wording::StatusNoName)
                         : textOf(wording::StatusSquadron, {squadron}));
    say(baseText(career));
    say(textOf(wording::StatusVictories, {player.shotdowns}));
    say(textOf(wording::StatusMissions, {player.missions}));
    const MissionOrders* orders = flight.orders(career);
    if (orders != nullptr)
        sayOrders(*orders);
    else if (const int32_t date = flight.voidOrders(career); date > today(career))
        say(textOf(wording::OrdersVoid, {dateInLanguage(Calendar::ofNumber(date))}));
    say(nextStep(orders != nullptr));
    return true;
}

void Session::sayOrders(const MissionOrders& orders) const {
    say(textOf(wording::OrdersOut, {dateInLanguage(Calendar::ofNumber(orders.date))}));
    sayFile(wording::OrdersFiles[static_cast<size_t>(fileOf(orders))], missionFilePath());
    sayFile(wording::OrdersLog, simulatorFolder() + "data\\");
    if (!flight.areOrdersKept())
        say(textOf(wording::OrdersEndHere));
}

zel::String Session::nextStep(bool areOrdersOut) const {
    if (isWarOver(career))
        return textOf(wording::StatusNext, {missionButtonText(career)});
    if (const SimulatorState state = checkSimulator(); state != SimulatorState::Ready)
        return textOf(wording::StatusNext, {textOf(adviceFor(state), {simulatorFolder()})});
    if (areOrdersOut)
        return textOf(wording::StatusNextFly);
    if (career.invitationSquadron >= 0)
        return textOf(wording::StatusNextAnswer);
    return textOf(wording::StatusNext, {"mission"}); // the command's name
}

bool Session::mission() {
    if (!needCareer() || !needSimulator())
        return false;
    if (isWarOver(career))
        return fail(missionButtonText(career));
    keepPlayerOnAllowedMap(career);
    say(dateInLanguage(career.calendar()));
    const DailyMission today = flight.begin(career);
    if (!today.problem.empty())
        return fail(today.problem);
    const Squadron& squadron = career.playerSquadron();
    say(taskText({squadron.baseX, squadron.baseZ}, {today.fightX, today.fightZ},
                 squadron.onChannelMap != 0));
    say(skyText(today.sky));
    sayAll(today.roster);
    say(startLabel(today));
    if (!flight.areOrdersKept())
        say(textOf(wording::OrdersEndHere));
    return true;
}

bool Session::fly() {
    if (!needSimulator())
        return false;
    standin::FlightOptions options;
    options.seed = zel::Random().next();
    standin::FlightSummary summary;
    tools::Finding finding;
    if (!standin::flyMission(Configuration::getRofDirectory(), MissionFileName, options, finding,
                             &summary))
        return fail(finding.text());
    sayFile(wording::Flown, summary.logName);
    return true;
}

bool Session::report() {
    if (!needCareer() || !needSimulator())
        return false;
    if (flight.orders(career) == nullptr)
        return fail(whyNoOrders(flight, career));
    bool found = flight.findReport(career);
    const auto isEnding = [&] { return flight.news().state == LogState::Ending; };
    for (int32_t waited = 0; !found && (waited < waitSeconds || isEnding()); ++waited) {
        zel::system::sleepMilliseconds(LookInterval);
        found = flight.findReport(career);
    }
    if (!found)
        return fail(whyNoReport(flight));
    say(textOf(wording::ReportHead, {dateInLanguage(career.calendar())}));
    sayAll(reportLines(flight.report().pilots));
    flight.report().clear();
    advanceOnePeriod();
    return true;
}

void Session::advanceOnePeriod() {
    advanceWar(career, &flight.generator());
    progress.clear();
}

bool Session::advance(int32_t periods) {
    if (!needCareer())
        return false;
    for (int32_t i = 0; i < periods; ++i)
        advanceOnePeriod();
    say(dateInLanguage(career.calendar()));
    return true;
}

bool Session::until(int32_t date) {
    if (!needCareer())
        return false;
    while (!isWarOver(career) && career.calendar().dateNumber() < date) {
        keepPlayerOnAllowedMap(career);
        if (letter.open(career)) {
            say(letter.text());
            say(textOf(letter.accept(career) ? wording::Accepted : wording::NobodyThere));
        }
        if (!mission() || !fly() || !report())
            return false;
    }
    say(dateInLanguage(career.calendar()));
    if (isWarOver(career))
        say(missionButtonText(career));
    return true;
}

bool Session::squadron() {
    if (!needCareer())
        return false;
    if (const zel::String name = squadronText(career); !name.empty())
        say(name);
    say(baseText(career));
    return sayAll(squadronLines(career));
}

bool Session::aces() {
    if (!needCareer())
        return false;
    for (const zel::String& line : aceLines(career))
        if (!line.empty())
            say(line);
    return true;
}

bool Session::showInvitation() {
    if (!needCareer())
        return false;
    say(letter.open(career) ? letter.text() : textOf(wording::NoInvitation));
    return true;
}

bool Session::acceptInvitation() {
    if (!needCareer())
        return false;
    if (!letter.open(career))
        return fail("No invitation waits");
    say(letter.text());
    if (!letter.accept(career))
        return fail("The inviting squadron has no pilot to change places with");
    say(textOf(wording::Accepted));
    return true;
}

bool Session::refuseInvitation() {
    if (!needCareer())
        return false;
    if (!letter.open(career))
        return fail("No invitation waits");
    say(letter.text());
    letter.refuse(career);
    say(textOf(wording::Refused));
    return true;
}

bool Session::sayRecord(const std::function<std::vector<zel::String>(SqliteFile&)>& linesOf,
                        const zel::String& fault) {
    if (!needRecord())
        return false;
    SqliteFile& tables = record.read(career);
    const std::vector<zel::String> lines = linesOf(tables);
    if (tables.failed())
        return fail("The record of the war can't be read: " + tables.problem());
    for (const RecordGap& gap : record.gaps())
        say(recordGapText(gap));
    for (const zel::String& line : lines)
        say(line);
    if (lines.empty() && !fault.empty())
        return fail(fault);
    if (lines.empty())
        say(textOf(wording::NothingRecorded));
    return true;
}

bool Session::flights() { return sayRecord(flightLines); }

bool Session::why(int32_t number) {
    return sayRecord([=](SqliteFile& t) { return whyLines(t, number); });
}

bool Session::victories(const zel::String& name) {
    return sayRecord([&](SqliteFile& t) {
        return name.empty() ? ownVictoryLines(t, career.playerPilot) : victoryLines(t, name);
    });
}

bool Session::writeFile(const zel::String& file, bool isPage) {
    if (!needRecord())
        return false;
    if (belongsToCareer(file))
        return fail(file + " belongs to a career");
    SqliteFile& tables = record.read(career);
    const WebPage made = isPage ? webPageOf(tables, career, BookTables::instance())
                                : WebPage{recordAsJson(tables), {}, {}};
    if (made.html.empty())
        return fail(isPage ? made.problem
                           : "The record of the war can't be read: " + tables.problem());
    const zel::FileFault fault = zel::writeFileWhole(file, made.html);
    if (fault == zel::FileFault::None)
        sayFile(wording::Exported, file);
    return fault == zel::FileFault::None ||
           fail(file + " can't be written: " + zel::faultText(fault));
}

bool Session::onShelf(const std::function<bool(ShelfCommands&)>& command) {
    const bool isDone = command(shelf);
    for (const zel::String& line : shelf.takeLines())
        say(line);
    return isDone || fail(shelf.problem());
}
