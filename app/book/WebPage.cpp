#include "app/book/WebPage.h"

#include <algorithm>
#include <iterator>
#include <kainjow/mustache.hpp>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "app/book/BookCharts.h"
#include "app/book/BookPictures.h"
#include "app/book/ChartStyle.h"
#include "app/book/Citation.h"
#include "app/book/LogBookText.h"
#include "app/book/LogBookWording.h"
#include "app/book/RecordedFlight.h"
#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/book/SketchPicture.h"
#include "app/book/TotalChart.h"
#include "app/book/WebWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/UnitNames.h"
#include "app/record/Sqlite.h"
#include "app/report/Outcome.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/TextEncoding.h"

namespace {

using kainjow::mustache::data;

constexpr const char* TemplateFile = "Data\\Book\\logbook.html";
constexpr int32_t LargestTemplate = 1 << 20; // bytes
constexpr size_t MostSketches = 6;

data valueOf(const zel::String& text) { return data(zel::utf8Of(text.view())); }

zel::String dayTextOf(int32_t date) { return bookDate(Calendar::ofNumber(date)); }

/// The page's data, part by part.
class PageData {
public:
    PageData(SqliteFile& record, const Database& career, const BookTables& tables,
             const LogBook& book)
        : record(record), career(career), book(book),
          pilot(readPilot(record, career, tables, book.flights.back().pilot)),
          men(realMen(book, career, tables)), months(monthScores(book, men)) {}

    data make() {
        addHeads();
        addFigures();
        page["monthChart"] = data(monthChart(months));
        page["totalChart"] = data(totalChart(book, men));
        page["areCharts"] = data(hasManyMonths(men.since, men.end) ? "one" : "two");
        page["timeline"] = data(timelineOf(book, pilot.honours));
        addService();
        addFlights();
        addVictories();
        addSketches();
        return std::move(page);
    }

private:
    void set(const char* key, const zel::String& text) { page[key] = valueOf(text); }
    void set(const char* key, const Wording& words) { page[key] = valueOf(textOf(words)); }

    void addHeads();
    void addFigures();
    zel::String bestMonth() const;
    void addService();
    void addFlights();
    void addVictories();
    void addVictory(data& rows, const RecordedFlight& flight, size_t victim);
    void addSketches();
    void addSketch(data& sketches, const RecordedFlight& flight);
    std::vector<int32_t> sketchedFlights() const;

    SqliteFile& record;
    const Database& career;
    const LogBook& book;
    const PilotRecord pilot;
    const RealMen men;
    const std::vector<MonthScore> months;
    std::vector<Shape> shapes; // of the victories
    data page;
    int32_t victoryNumber = 0;
};

void PageData::addHeads() {
    const zel::String name = titleOf(pilot.honours, pilot.name);
    page["language"] =
        data(zel::Language::getCode().empty() ? std::string("en")
                                              : std::string(zel::Language::getCode().view()));
    set("pageTitle", textOf(wording::WebTitle, {name}));
    set("name", name);
    const int32_t unit = unitNumber(career, career.squadron(pilot.squadron).squadronFile);
    const int32_t last = book.flights.back().date;
    set("subtitle",
        textOf(wording::WebSubtitle, {serviceName(pilot.nation, branchOfUnit(unit), last),
                                      unitText(career, pilot.squadron),
                                      dayTextOf(book.flights.front().date), dayTextOf(last)}));
    set("partsLabel", wording::WebParts);
    set("chartsHead", wording::WebCharts);
    set("serviceHead", wording::WebService);
    set("victoriesHead", wording::WebVictories);
    set("mapsHead", wording::WebSketches);
    set("flightsHead", wording::WebFlights);
    set("ownKey", wording::OwnMonths);
    set("realKey", men.isFront ? wording::BestOfFront : wording::BestMonths);
    set("totalNote", men.isFront ? wording::TotalsOfFront : wording::TotalsOfSquadron);
    set("timelineNote", wording::TimeLineNote);
    set("ranksHead", wording::WebRanks);
    set("awardsHead", wording::WebAwards);
    set("noAward", wording::NoWebAward);
    set("mapsNote", wording::SketchesNote);
    set("pilotHead", wording::WebPilot);
    set("whyHead", wording::WebWhy);
    constexpr const char* Heads[] = {"numberHead", "dateHead",    "nearHead",  "machineHead",
                                     "withHead",   "againstHead", "resultHead"};
    for (size_t i = 0; i < std::size(Heads); ++i)
        set(Heads[i], wording::LogBookHeads[i]);
    set("footer",
        textOf(wording::WebFooter, {pilot.name, dayTextOf(career.calendar().dateNumber())}));
}

/// The month in which he won most, and how many.
zel::String PageData::bestMonth() const {
    std::map<int32_t, int32_t> won; // by month
    for (const BookFlight& flight : book.flights)
        if (flight.pilot == pilot.pilot)
            won[monthOf(flight.date)] += flight.victories;
    const auto [month, most] = *std::max_element(
        won.begin(), won.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
    const bool isLong =
        monthOf(book.flights.back().date) - monthOf(book.flights.front().date) >= 100;
    return textOf(wording::PairOfFigures,
                  {isLong ? monthAndYear(month) : shortMonth(month % 100), most});
}

void PageData::addFigures() {
    data figures(data::type::list);
    const auto add = [&](const Wording& label, const zel::String& value) {
        data figure;
        figure["label"] = valueOf(textOf(label));
        figure["value"] = valueOf(value);
        figures << figure;
    };
    const auto count = [&](auto isOne) {
        return static_cast<int32_t>(std::count_if(book.flights.begin(), book.flights.end(), isOne));
    };
    // The total of the present pilot, and that of the whole book if it has more pilots.
    const int32_t own = pilot.pilot;
    const bool isShared = std::any_of(book.flights.begin(), book.flights.end(),
                                      [=](const BookFlight& f) { return f.pilot != own; });
    const auto addBoth = [&](const Wording& label, int32_t his, int32_t all) {
        add(label, isShared ? textOf(wording::FigureAndBook, {his, all}) : zel::String(his));
    };
    const auto addCount = [&](const Wording& label, auto isOne) {
        addBoth(label, count([&](const BookFlight& f) { return f.pilot == own && isOne(f); }),
                count(isOne));
    };
    addCount(wording::FigureFlights, [](const BookFlight&) { return true; });
    int32_t won = 0;
    for (const BookFlight& flight : book.flights)
        won += flight.pilot == own ? flight.victories : 0;
    addBoth(wording::FigureVictories, won, book.victories);
    if (won > 0)
        add(wording::FigureBestMonth, bestMonth());
    add(wording::FigureMachine, machineText(book.flights.back().aircraft));
    addCount(wording::FigureDamaged, [](const BookFlight& f) { return f.damage >= NotedDamage; });
    addCount(wording::FigureInjured, [](const BookFlight& f) { return f.injury > 0; });
    page["figures"] = std::move(figures);
}

void PageData::addService() {
    data ranks(data::type::list);
    for (const RankGiven& given : pilot.honours.ranks)
        ranks << valueOf(textOf(wording::PairOfFigures, {given.rank->name, dayTextOf(given.date)}));
    page["ranks"] = std::move(ranks);
    data awards(data::type::list);
    for (const AwardGiven& given : pilot.honours.awards) {
        data award;
        award["ribbon"] = data(ribbonPicture(given.award->key));
        award["words"] = valueOf(
            textOf(wording::PairOfFigures, {awardText(*given.award), dayTextOf(given.date)}));
        awards << award;
    }
    page["awards"] = std::move(awards);
}

void PageData::addFlights() {
    data rows(data::type::list);
    for (size_t i = 0; i < book.flights.size(); ++i) {
        const BookFlight& flight = book.flights[i];
        const LogBookRow row = wholeRow(flight);
        data one;
        one["isWon"] = data(flight.victories > 0);
        one["number"] = valueOf(row.number);
        one["date"] = valueOf(row.date);
        one["machine"] = valueOf(row.machine);
        one["with"] = valueOf(row.with);
        one["against"] = valueOf(row.against);
        one["result"] = valueOf(row.result);
        one["total"] = valueOf(row.total);
        if (book.endsPilot(i))
            one["fall"] = valueOf(joined({fallText(flight), successionText(book, i)}, " "));
        rows << one;
    }
    page["flights"] = std::move(rows);
}

void PageData::addVictories() {
    data rows(data::type::list);
    for (const BookFlight& flown : book.flights) {
        if (flown.victories == 0)
            continue;
        const std::optional<RecordedFlight> flight = readFlight(record, flown.number);
        if (!flight)
            continue;
        for (const PilotReport& report : flight->mission.reports)
            if (report.pilot == flown.pilot)
                for (const int32_t victim : report.kills)
                    addVictory(rows, *flight, static_cast<size_t>(victim));
    }
    page["victories"] = std::move(rows);
    page["hasVictories"] = data(victoryNumber > 0);
    if (victoryNumber > 0)
        page["machines"] =
            data(victoryPictures(shapes, countText(wording::Victories, victoryNumber)));
}

void PageData::addVictory(data& rows, const RecordedFlight& flight, size_t victim) {
    const FlownMission& mission = flight.mission;
    const PilotReport& fallen = mission.reports[victim];
    const char* const town = townOfEnd(flight, static_cast<int32_t>(victim));
    data row;
    row["number"] = valueOf(++victoryNumber);
    row["date"] = valueOf(dayTextOf(flight.date));
    const zel::String& machine = fallen.plannedType.empty() ? fallen.type : fallen.plannedType;
    shapes.push_back(shapeOf(machine));
    row["machine"] = valueOf(machineText(machine));
    row["pilot"] = valueOf(fallen.plannedName.empty() ? reportedName(fallen) : fallen.plannedName);
    row["near"] = valueOf(town != nullptr ? nameInLanguage(town) : zel::String("-"));
    row["why"] = valueOf(Outcomes(mission.reports, mission.events).of(victim).reason);
    rows << row;
}

/// The first victory, the day with most of them, and the last flight.
std::vector<int32_t> PageData::sketchedFlights() const {
    std::vector<int32_t> chosen;
    const auto add = [&](const BookFlight& flight) {
        if (chosen.size() < MostSketches &&
            std::find(chosen.begin(), chosen.end(), flight.number) == chosen.end())
            chosen.push_back(flight.number);
    };
    const auto& flights = book.flights;
    const auto first = std::find_if(flights.begin(), flights.end(),
                                    [](const BookFlight& f) { return f.victories > 0; });
    if (first != flights.end()) {
        add(*first);
        add(*std::max_element(
            flights.begin(), flights.end(),
            [](const BookFlight& a, const BookFlight& b) { return a.victories < b.victories; }));
    }
    add(flights.back());
    std::sort(chosen.begin(), chosen.end());
    return chosen;
}

void PageData::addSketches() {
    data sketches(data::type::list);
    for (const int32_t number : sketchedFlights())
        if (const std::optional<RecordedFlight> flight = readFlight(record, number))
            addSketch(sketches, *flight);
    page["sketches"] = std::move(sketches);
}

/// The caption names those who were lost.
void PageData::addSketch(data& sketches, const RecordedFlight& flight) {
    MapPoint base;
    const bool hasBase = baseOf(record, flight, base);
    const Sketch sketch = sketchOf(flight, hasBase ? &base : nullptr);
    zel::String caption;
    for (const SketchLine& line : sketch.lines)
        if (line.isLoss)
            caption += (caption.empty() ? "" : " ") + line.text + ".";
    const zel::String title =
        textOf(wording::SketchOfFlight, {flight.number, dayTextOf(flight.date)});
    data one;
    one["picture"] = data(sketchPicture(sketch, title, caption));
    one["title"] = valueOf(title);
    one["caption"] = valueOf(caption);
    sketches << one;
}

WebPage failure(const zel::String& problem, const Wording& reason) {
    return {{}, problem, textOf(reason)};
}

} // namespace

WebPage webPageOf(SqliteFile& record, const Database& career, const BookTables& tables) {
    const auto unreadable = [&] {
        return failure("The record of the war can't be read: " + record.problem(),
                       wording::RecordUnreadable);
    };
    const LogBook book = readLogBook(record, career, tables);
    if (record.failed())
        return unreadable();
    if (book.flights.empty())
        return failure("There is no flight yet", wording::NoFlightYet);
    std::string text;
    if (!zel::readFile(TemplateFile, LargestTemplate, text))
        return failure(zel::String("The page's template can't be read: ") + TemplateFile,
                       wording::NoTemplate);
    kainjow::mustache::mustache page(text);
    if (!page.is_valid())
        return failure(zel::String("The page's template is wrong: ") + page.error_message(),
                       wording::WrongTemplate);
    data values = PageData(record, career, tables, book).make();
    if (record.failed())
        return unreadable();
    return {page.render(values), {}, {}};
}
