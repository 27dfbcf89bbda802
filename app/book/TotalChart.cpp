#include "app/book/TotalChart.h"

#include <algorithm>
#include <iterator>

#include "app/book/ChartStyle.h"
#include "app/book/LogBookText.h"
#include "app/book/Svg.h"
#include "app/book/WebWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"

namespace {

constexpr float TotalLeft = 40;
constexpr float TotalGround = 214;
constexpr float TotalTop = 14;
constexpr float TotalRight = 120; // for the names
constexpr float TotalHeight = 250;
constexpr float NameHeight = 14;
constexpr float LongestName = 110;
constexpr size_t MostMen = 5;
constexpr int32_t ScaleSteps = 6; // of the scale, about

constexpr const char* OwnText = "font-size=\"13\" fill=\"#2B4B2E\" font-weight=\"bold\"";
constexpr const char* OwnLine = "stroke=\"#2B4B2E\" stroke-width=\"3\"";
// Told apart without colour.
constexpr const char* MenLines[MostMen] = {
    "stroke=\"#5A452C\" stroke-width=\"1.5\" stroke-dasharray=\"7 3\"",
    "stroke=\"#5A452C\" stroke-width=\"1.5\" stroke-dasharray=\"2 3\"",
    "stroke=\"#5A452C\" stroke-width=\"1.5\" stroke-dasharray=\"10 3 2 3\"",
    "stroke=\"#5A452C\" stroke-width=\"1.5\"",
    "stroke=\"#5A452C\" stroke-width=\"1.5\" stroke-dasharray=\"1 5\"",
};

class TotalDrawing {
public:
    TotalDrawing(const LogBook& book, const RealMen& men)
        : book(book), men(men), width(chartWidth(men.since, men.end)), svg(width, TotalHeight) {}

    std::string draw() {
        findTop();
        drawScale();
        for (size_t i = 0; i < std::min(men.best.size(), MostMen); ++i)
            drawMan(men.best[i], MenLines[i]);
        drawOwn();
        svg.line(TotalLeft, TotalGround, width - TotalRight, TotalGround, ChartInk);
        for (const NameOnLine& note : notes) // after the lines, which would cross them
            svg.text(note.x, note.y, note.text, Svg::Anchor::Start, note.style);
        drawNames();
        return svg.element(textOf(wording::TotalChart), joined(sentences, " "));
    }

private:
    struct EndName {
        float y;
        zel::String text;
        bool isOwn;
    };

    /// The name of a pilot whose line ends before the chart's end.
    struct NameOnLine {
        float x, y;
        zel::String text;
        const char* style;
    };

    float x(int32_t date) const {
        const auto days = static_cast<float>(dayOfDate(men.end) - dayOfDate(men.since));
        const auto passed = static_cast<float>(dayOfDate(date) - dayOfDate(men.since));
        return TotalLeft + (width - TotalLeft - TotalRight) * passed / std::max(days, 1.0F);
    }
    float y(int32_t victories) const {
        return TotalGround -
               (TotalGround - TotalTop) * static_cast<float>(victories) / static_cast<float>(top);
    }

    void findTop() {
        for (const BookFlight& flight : book.flights)
            top = std::max(top, flight.total);
        for (const RealMember& man : men.best)
            top = std::max(top, man.victories(men.since, men.end));
    }

    void drawScale() {
        int32_t every = 1;
        for (const int32_t step : {1, 2, 5, 10, 20, 50})
            if (every * ScaleSteps < top)
                every = step;
        for (int32_t value = 0; value <= top; value += every) {
            svg.line(TotalLeft, y(value), width - TotalRight, y(value), ChartGrid);
            svg.text(TotalLeft - 8, y(value) + 4, value, Svg::Anchor::End, ChartSmall);
        }
        for (int32_t month = monthOf(men.since); month < monthOf(men.end);
             month = nextMonth(month)) {
            const float begin = x(month * 100 + 1);
            svg.line(begin, TotalGround, begin, TotalGround + 5, ChartInk);
            const bool isJanuary = month % 100 == 1;
            if (!hasManyMonths(men.since, men.end))
                svg.text((begin + x(nextMonth(month) * 100 + 1)) / 2, TotalGround + 17,
                         shortMonth(month % 100), Svg::Anchor::Middle, ChartPlain);
            else if (isJanuary || month == monthOf(men.since))
                svg.text(begin, TotalGround + 19, monthAndYear(month), Svg::Anchor::Start,
                         ChartPlain);
        }
    }

    /// A step up on each of the days, from the beginning to the end of the line.
    void drawSteps(int32_t begin, int32_t end, int32_t first, const std::vector<int32_t>& days,
                   const char* style) {
        int32_t total = first;
        svg.beginLine();
        svg.point(x(begin), y(total));
        for (const int32_t day : days) {
            svg.point(x(day), y(total));
            svg.point(x(day), y(++total));
        }
        svg.point(x(end), y(total));
        svg.endLine(style);
    }

    void drawMan(const RealMember& man, const char* style) {
        std::vector<int32_t> days;
        for (const int32_t day : man.ace->victoryDays)
            if (day >= std::max(man.from, men.since) && day < std::min(man.until, men.end))
                days.push_back(day);
        const int32_t begin = std::clamp(man.from, men.since, men.end);
        const bool isGone = man.ace->fate != Fate::Survived && man.ace->fateDate >= begin &&
                            man.ace->fateDate < men.end;
        const int32_t end =
            std::max(begin, std::min({man.until, men.end, isGone ? man.ace->fateDate : men.end}));
        drawSteps(begin, end, 0, days, style);
        const auto won = static_cast<int32_t>(days.size());
        if (end == men.end)
            names.push_back({y(won), lastName(man.ace->name) + " " + won, false});
        else
            notes.push_back(
                {x(end) + 4, y(won) - 4, lastName(man.ace->name) + " " + won, ChartSmall});
        sentences.push_back(textOf(wording::TotalOfChart, {man.ace->name, won}));
    }

    /// Each pilot of the book starts with the victories that he had before his first flight.
    void drawOwn() {
        float clear = 0;
        for (size_t i = 0; i < book.flights.size();) {
            size_t next = i;
            std::vector<int32_t> days;
            for (; next < book.flights.size() && book.flights[next].pilot == book.flights[i].pilot;
                 ++next)
                days.insert(days.end(), static_cast<size_t>(book.flights[next].victories),
                            book.flights[next].date);
            const BookFlight& first = book.flights[i];
            const BookFlight& last = book.flights[next - 1];
            drawSteps(first.date, last.date, first.total - first.victories, days, OwnLine);
            sentences.push_back(textOf(wording::TotalOfChart, {last.pilotName, last.total}));
            const zel::String words = lastName(last.pilotName) + " " + last.total;
            // A predecessor's name, where it doesn't overlap the previous one.
            if (next == book.flights.size()) {
                names.push_back({y(last.total), words, true});
            } else if (clear <= x(last.date)) {
                notes.push_back({x(last.date) + 4, y(last.total) - 6, words, OwnText});
                clear = x(last.date) + LongestName;
            }
            i = next;
        }
    }

    /// At the right, one below the other.
    void drawNames() {
        std::stable_sort(names.begin(), names.end(),
                         [](const EndName& a, const EndName& b) { return a.y < b.y; });
        const auto count = static_cast<float>(names.size());
        float least = TotalTop;
        for (size_t i = 0; i < names.size(); ++i) {
            const float below = (count - 1 - static_cast<float>(i)) * NameHeight;
            const float place = std::clamp(names[i].y + 4, least, TotalGround - below);
            least = place + NameHeight;
            svg.text(width - TotalRight + 6, place, names[i].text, Svg::Anchor::Start,
                     names[i].isOwn ? OwnText : ChartSmall);
        }
    }

    const LogBook& book;
    const RealMen& men;
    float width;
    Svg svg;
    int32_t top = 4;
    std::vector<EndName> names;
    std::vector<NameOnLine> notes;
    std::vector<zel::String> sentences; // what the drawing shows, in words
};

} // namespace

std::string totalChart(const LogBook& book, const RealMen& men) {
    return TotalDrawing(book, men).draw();
}
