#include "app/book/LogBookText.h"

#include <algorithm>
#include <cstdio>

#include "app/book/DiaryWording.h"
#include "app/book/LogBookWording.h"
#include "app/book/ServiceWording.h"
#include "app/book/Standing.h"
#include "app/career/Aircraft.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/GroundObjects.h"
#include "app/report/Outcome.h"

namespace {

constexpr std::string_view Cut = "...";
constexpr size_t NoLimit = 1000; // letters

/// "Albatros" for "Albatros D.III"; an object on the ground in full.
zel::String maker(const zel::String& aircraft) {
    zel::String name = machineText(aircraft);
    if (groundObject(aircraft.view()) != nullptr)
        return name;
    return name.view().substr(0, name.view().find(' '));
}

zel::String dateOfRow(int32_t date) {
    const Calendar day = Calendar::ofNumber(date);
    const int32_t month = std::clamp(day.getMonth(), 1, 12);
    return textOf(wording::RowDate,
                  {day.getDay(), textOf(wording::RowMonths[month - 1]), day.getYear() % 100});
}

zel::String withText(const BookFlight& flight, size_t letters) {
    if (flight.companions.empty())
        return textOf(wording::FlewAlone);
    const auto more = static_cast<int32_t>(flight.companions.size()) - 1;
    const zel::String name = lastName(flight.companions.front());
    if (more == 0)
        return cutTo(name, letters);
    const auto mark = static_cast<size_t>(textOf(wording::WithMore, {"", more}).length());
    return textOf(wording::WithMore, {cutTo(name, letters - mark), more});
}

zel::String againstText(const BookFlight& flight, size_t letters) {
    if (flight.opponents.empty())
        return textOf(wording::NobodyMet);
    const MachineCount& most = flight.opponents.front();
    const auto mark =
        static_cast<size_t>(textOf(wording::CountOfMachines, {most.count, ""}).length());
    return textOf(wording::CountOfMachines,
                  {most.count, machineText(most.aircraft, letters - mark)});
}

/// Slight, moderate or severe as in the combat report: 0 to 2.
size_t severityOf(int32_t percent) {
    return percent > SevereInjury ? 2 : percent > ModerateInjury ? 1 : 0;
}

const Wording& injuryWording(int32_t percent) {
    const Wording* const forms[] = {&wording::SlightlyInjured, &wording::WasInjured,
                                    &wording::BadlyInjured};
    return *forms[severityOf(percent)];
}

/// What became of a man who brought nobody down.
const Wording& ownFate(const BookFlight& flight) {
    if (!flight.isNamed)
        return wording::NotInTheLog;
    if (flight.isDead)
        return wording::Fell;
    if (flight.isLost)
        return flight.isShotDown ? wording::WasShotDown : wording::HasCrashed;
    if (flight.injury > 0)
        return injuryWording(flight.injury);
    if (flight.damage >= NotedDamage) {
        const bool isDestroyed = flight.damage >= DestroyingDamage;
        if (flight.hasLanded)
            return isDestroyed ? wording::BadLanding : wording::DamagedAndLanded;
        return isDestroyed ? wording::WasDestroyed : wording::WasDamaged;
    }
    return flight.hasLanded ? wording::HasLanded : wording::LeftInTheAir;
}

/// The same after his victories; null for one who came back whole.
const Wording* fateAfterVictories(const BookFlight& flight) {
    if (flight.isDead)
        return &wording::AndFell;
    if (flight.isLost)
        return flight.isShotDown ? &wording::AndShotDown : nullptr;
    if (flight.injury > 0)
        return &wording::AndInjured;
    return flight.damage >= NotedDamage ? &wording::AndDamaged : nullptr;
}

/// The counts by maker, the most frequent first.
std::vector<MachineCount> byMaker(const std::vector<MachineCount>& machines) {
    std::vector<MachineCount> makers;
    for (const MachineCount& machine : machines)
        addTo(makers, maker(machine.aircraft), machine.count);
    sortByCount(makers);
    return makers;
}

zel::String lineOf(const LogBookRow& row) {
    return column(row.number, NumberLetters) + "  " + column(row.date, DateLetters) + "  " +
           column(row.near, NearLetters) + "  " + column(row.machine, MachineLetters) + "  " +
           column(row.with, WithLetters) + "  " + column(row.against, AgainstLetters) + "  " +
           column(row.result, ResultLetters) + "  " + row.total;
}

zel::String rightAligned(int32_t number, int32_t letters) {
    char text[16];
    std::snprintf(text, sizeof text, "%*d", letters, number);
    return {text};
}

} // namespace

zel::String cutTo(const zel::String& text, size_t letters) {
    const auto room = static_cast<int32_t>(letters);
    return text.length() <= room ? text : text.left(room - static_cast<int32_t>(Cut.size())) + Cut;
}

zel::String column(const zel::String& text, size_t letters) {
    std::string padded(text.view().substr(0, letters));
    padded.resize(letters, ' ');
    return padded;
}

zel::String lastName(const zel::String& name) {
    std::string_view rest = name.view();
    const auto isGiven = [](std::string_view word) { return word.back() == '.'; };
    for (bool isFirst = true;; isFirst = false) {
        const size_t end = rest.find(' ');
        if (end == 0 || end == std::string_view::npos ||
            (!isFirst && !isGiven(rest.substr(0, end))))
            return rest;
        rest.remove_prefix(end + 1);
    }
}

zel::String initialName(const zel::String& name, size_t letters) {
    const bool isWhole = name.length() <= static_cast<int32_t>(letters);
    return isWhole ? name : cutTo(shortName(name), letters);
}

// The names of aircraft have a blank after "D.", for which columns have no room.
zel::String machineText(const zel::String& aircraft) {
    if (const Wording* ground = groundObject(aircraft.view()))
        return textOf(*ground);
    const std::string name(nameInLanguage(planeDisplayName(aircraft)).view());
    std::string text;
    for (size_t i = 0; i < name.size(); ++i)
        if (name[i] != ' ' || i == 0 || name[i - 1] != '.')
            text += name[i];
    return text;
}

zel::String machineText(const zel::String& aircraft, size_t letters) {
    constexpr size_t LeastName = 7; // of a type: "Triplane", but not "Late" in any language
    const zel::String name = machineText(aircraft);
    const std::string_view whole = name.view();
    const size_t blank = whole.rfind(' ');
    if (whole.size() <= letters || blank == std::string_view::npos)
        return cutTo(name, letters);
    const std::string_view last = whole.substr(blank + 1);
    // A word such as "late" isn't a name.
    const bool isName = last.size() >= LeastName && last.find('.') == std::string_view::npos &&
                        last.front() >= 'A' && last.front() <= 'Z';
    return cutTo(isName ? last : whole.substr(0, blank), letters);
}

LogBookRow logBookHeads() {
    const auto head = [](size_t i) { return textOf(wording::LogBookHeads[i]); };
    return {head(0), head(1), head(2), head(3), head(4), head(5), head(6), head(7)};
}

LogBookRow logBookRow(const BookFlight& flight) {
    return {rightAligned(flight.number, NumberLetters),
            dateOfRow(flight.date),
            cutTo(nameInLanguage(flight.base), NearLetters),
            machineText(flight.aircraft, MachineLetters),
            withText(flight, WithLetters),
            againstText(flight, AgainstLetters),
            resultText(flight),
            rightAligned(flight.total, 4)};
}

LogBookRow wholeRow(const BookFlight& flight) {
    return {flight.number,
            bookDate(Calendar::ofNumber(flight.date)),
            nameInLanguage(flight.base),
            machineText(flight.aircraft),
            withText(flight, NoLimit),
            againstText(flight, NoLimit),
            resultText(flight, NoLimit),
            flight.total};
}

zel::String resultText(const BookFlight& flight, size_t letters) {
    if (flight.victories <= 0)
        return textOf(ownFate(flight));
    const int32_t form = std::min<int32_t>(flight.victories, 4) - 1;
    zel::String victories = textOf(wording::Downed[form], {flight.victories});
    const Wording* const fate = fateAfterVictories(flight);
    if (fate == nullptr)
        return victories;
    zel::String both = textOf(wording::DownedAnd, {victories, textOf(*fate)});
    if (both.length() <= static_cast<int32_t>(letters))
        return both;
    return flight.isDead ? textOf(wording::Fell) : victories;
}

zel::String woundText(int32_t percent) {
    return textOf(wording::YouAreWounded[severityOf(percent)]);
}

zel::String flightsText(const LogBook& book) {
    zel::String flights =
        countText(wording::BookFlights, static_cast<int32_t>(book.flights.size()));
    if (book.flights.empty())
        return flights;
    return textOf(wording::FlightsInMonths,
                  {flights, countText(wording::BookMonths, book.months())});
}

zel::String victoriesText(const LogBook& book, size_t letters) {
    zel::String victories = countText(wording::Victories, book.victories);
    if (book.victories == 0)
        return victories;
    std::vector<zel::String> parts;
    const std::vector<MachineCount> makers = byMaker(book.victims);
    parts.reserve(makers.size());
    for (const MachineCount& maker : makers)
        parts.push_back(textOf(wording::CountOfMachines, {maker.count, maker.aircraft}));
    for (size_t shown = makers.size(); shown > 0; --shown) {
        std::vector<zel::String> some(parts.begin(),
                                      parts.begin() + static_cast<std::ptrdiff_t>(shown));
        int32_t rest = book.victories;
        for (size_t i = 0; i < shown; ++i)
            rest -= makers[i].count;
        if (rest > 0)
            some.push_back(textOf(wording::MoreMachines, {rest}));
        zel::String text = textOf(wording::VictoriesBy, {victories, listed(some)});
        if (text.length() <= static_cast<int32_t>(letters))
            return text;
    }
    return victories;
}

zel::String fallText(const BookFlight& flight) {
    return textOf(wording::FellOn, {flight.pilotTitle, bookDate(Calendar::ofNumber(flight.date))});
}

zel::String successionText(const LogBook& book, size_t flight) {
    const zel::String& successor = book.flights[flight].successorTitle;
    return successor.empty() ? zel::String() : textOf(wording::InHisPlace, {successor});
}

zel::String emptyBookText(const LogBook& book) {
    return textOf(book.isUnreadable ? wording::RecordUnreadable : wording::NoFlightYet);
}

std::vector<zel::String> logBookLines(const LogBook& book) {
    std::vector<zel::String> lines{lineOf(logBookHeads())};
    for (size_t i = 0; i < book.flights.size(); ++i) {
        lines.push_back(lineOf(logBookRow(book.flights[i])));
        if (!book.endsPilot(i))
            continue;
        lines.push_back(joined({fallText(book.flights[i]), successionText(book, i)}, " "));
    }
    if (book.flights.empty())
        lines.push_back(emptyBookText(book));
    lines.push_back(flightsText(book));
    lines.push_back(victoriesText(book, 80));
    return lines;
}
