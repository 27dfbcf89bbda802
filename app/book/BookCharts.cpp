#include "app/book/BookCharts.h"

#include <algorithm>
#include <cmath>

#include "app/book/ChartStyle.h"
#include "app/book/LogBookText.h"
#include "app/book/ServiceText.h"
#include "app/book/Svg.h"
#include "app/book/WebWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"

namespace {

using Anchor = Svg::Anchor;

constexpr float ChartWidth = 940;
constexpr float HalfWidth = 460;
constexpr int32_t MonthsOfHalf = 7;
constexpr float MonthsHeight = 250;
constexpr float TimeHeight = 190;
constexpr float MapWidth = 312;
constexpr int32_t MonthsWithNames = 14; // for more there is no room

constexpr const char* Bold = "font-size=\"13\" fill=\"#2A1E12\" font-weight=\"bold\"";
constexpr const char* BlueText = "font-size=\"13\" fill=\"#23406B\"";
constexpr const char* RedText = "font-size=\"13\" fill=\"#8E1F17\"";

/// Lines of the scale go up to that.
int32_t topOf(const std::vector<MonthScore>& months) {
    int32_t top = 4;
    for (const MonthScore& month : months)
        top = std::max({top, month.own, month.best});
    return top;
}

void drawBars(Svg& svg, const MonthScore& month, float x, float width, float unit, float ground) {
    const float bar = width / 2 - 1;
    const auto own = static_cast<float>(month.own);
    const auto best = static_cast<float>(month.best);
    svg.rect(x, ground - own * unit, bar, own * unit, "fill=\"#2B4B2E\" stroke=\"#2A1E12\"");
    // Hatched, for those who see no colour.
    const auto height = static_cast<int32_t>(std::ceil(own * unit));
    for (int32_t line = 4; line < height; line += 6) {
        const float y = ground - static_cast<float>(line);
        svg.line(x, y, x + bar, y, "stroke=\"#7E9158\" stroke-width=\"1.6\"");
    }
    svg.text(x + bar / 2, ground - own * unit - 5, month.own, Anchor::Middle, Bold);
    if (month.bestMan.empty())
        return;
    svg.rect(x + bar + 2, ground - best * unit, bar, best * unit,
             "fill=\"#EADFC0\" stroke=\"#5A452C\"");
    svg.text(x + bar * 1.5F + 2, ground - best * unit - 5, month.best, Anchor::Middle, ChartSmall);
}

} // namespace

bool hasManyMonths(int32_t since, int32_t end) {
    int32_t months = 0;
    for (int32_t month = monthOf(since); month < monthOf(end); month = nextMonth(month))
        ++months;
    return months > MonthsOfHalf;
}

float chartWidth(int32_t since, int32_t end) {
    return hasManyMonths(since, end) ? ChartWidth : HalfWidth;
}

std::string monthChart(const std::vector<MonthScore>& months) {
    constexpr float Left = 40;
    constexpr float Ground = 200;
    constexpr float Top = 26;
    const float wide =
        chartWidth(months.front().month * 100 + 1, nextMonth(months.back().month) * 100 + 1);
    Svg svg(wide, MonthsHeight);
    const int32_t top = topOf(months);
    const float unit = (Ground - Top) / static_cast<float>(top);
    const int32_t every = top <= 10 ? 2 : 5;
    for (int32_t value = 0; value <= top; value += every) {
        const float y = Ground - static_cast<float>(value) * unit;
        svg.line(Left, y, wide - 8, y, ChartGrid);
        svg.text(Left - 8, y + 4, value, Anchor::End, ChartSmall);
    }
    const auto count = static_cast<float>(months.size());
    const float step = (wide - Left - 10) / count;
    const float width = std::min(step - 4, 90.0F);
    std::vector<zel::String> sentences;
    for (size_t i = 0; i < months.size(); ++i) {
        const MonthScore& month = months[i];
        const float x = Left + step * static_cast<float>(i) + (step - width) / 2;
        drawBars(svg, month, x, width, unit, Ground);
        const bool isFew = months.size() <= static_cast<size_t>(MonthsWithNames);
        if (isFew || month.month % 100 % 3 == 1)
            svg.text(x + width / 2, Ground + 17,
                     isFew ? shortMonth(month.month % 100) : monthAndYear(month.month),
                     Anchor::Middle, ChartPlain);
        // In two rows, since most names are wider than a month.
        if (isFew && !month.bestMan.empty())
            svg.text(x + width / 2, Ground + 32 + static_cast<float>(i % 2) * 14,
                     lastName(month.bestMan), Anchor::Middle, ChartSmall);
        sentences.push_back(
            month.bestMan.empty()
                ? textOf(wording::MonthAlone, {monthAndYear(month.month), month.own})
                : textOf(wording::MonthOfChart,
                         {monthAndYear(month.month), month.own, month.bestMan, month.best}));
    }
    svg.line(Left, Ground, wide - 8, Ground, ChartInk);
    return svg.element(textOf(wording::MonthChart), joined(sentences, " "));
}

namespace {

constexpr float TimeLeft = 16;
constexpr float TimeAxis = 128;
constexpr float FlagStep = 18; // from level to level
constexpr int32_t FlagLevels = 5;
constexpr float LetterWidth = 7; // of a flag's text, about

/// Places along the time.
class TimeScale {
public:
    TimeScale(int32_t first, int32_t last)
        : first(dayOfDate(first)), days(static_cast<float>(dayOfDate(last) - dayOfDate(first))) {}
    float at(int32_t date) const {
        const float part = static_cast<float>(dayOfDate(date) - first) / std::max(days, 1.0F);
        return TimeLeft + (ChartWidth - 2 * TimeLeft) * part;
    }

private:
    int32_t first;
    float days;
};

void drawFlight(Svg& svg, const BookFlight& flight, float x) {
    svg.line(x, TimeAxis, x, TimeAxis + 12, "stroke=\"#2A1E12\" stroke-width=\"1.8\"");
    if (flight.victories > 0)
        svg.circle(x, TimeAxis - 9, 5.5F, "fill=\"#2B4B2E\" stroke=\"#2A1E12\"");
    if (flight.injury > 0 || flight.isDead)
        svg.path(x - 2, TimeAxis + 14, "h4 v4 h4 v4 h-4 v4 h-4 v-4 h-4 v-4 h4 Z",
                 "fill=\"#8E1F17\"");
    else if (flight.damage >= NotedDamage)
        svg.path(x, TimeAxis + 14, "l4.5 8 h-9 Z",
                 "fill=\"#EADFC0\" stroke=\"#5A452C\" stroke-width=\"1.5\"");
}

struct Flag {
    int32_t date;
    zel::String words;
    bool isAward;
    float x = 0, y = 0; // the foot of its text
    bool isLeft = false;
};

/// Puts each flag where no other one is in the way.
void placeFlags(std::vector<Flag>& flags, const TimeScale& scale) {
    std::vector<float> ends(FlagLevels, 0.0F);
    for (Flag& flag : flags) {
        flag.x = scale.at(flag.date);
        const float width = LetterWidth * static_cast<float>(flag.words.length());
        flag.isLeft = flag.x + width > ChartWidth;
        const float begin = flag.isLeft ? flag.x - width - 5 : flag.x;
        size_t level = 0;
        while (level + 1 < ends.size() && ends[level] > begin)
            ++level;
        ends[level] = (flag.isLeft ? flag.x : flag.x + width) + 10;
        flag.y = TimeAxis - 26 - FlagStep * static_cast<float>(level);
    }
}

/// The texts after all lines, so that no line crosses one.
void drawFlags(Svg& svg, const std::vector<Flag>& flags) {
    for (const Flag& flag : flags)
        svg.line(flag.x, TimeAxis - 18, flag.x, flag.y - 10,
                 flag.isAward ? "stroke=\"#8E1F17\" stroke-width=\"1.4\""
                              : "stroke=\"#23406B\" stroke-width=\"1.4\"");
    for (const Flag& flag : flags)
        svg.text(flag.x + (flag.isLeft ? -5 : 5), flag.y, flag.words,
                 flag.isLeft ? Anchor::End : Anchor::Start, flag.isAward ? RedText : BlueText);
}

} // namespace

std::string timelineOf(const LogBook& book, const Honours& honours) {
    const int32_t begin = monthOf(book.flights.front().date) * 100 + 1;
    const int32_t end = nextMonth(monthOf(book.flights.back().date)) * 100 + 1;
    const TimeScale scale(begin, end);
    Svg svg(ChartWidth, TimeHeight);
    svg.line(TimeLeft, TimeAxis, ChartWidth - TimeLeft, TimeAxis,
             "stroke=\"#2A1E12\" stroke-width=\"2\"");
    const bool isLong = (end - begin) / 10000 > 0;
    for (int32_t month = monthOf(begin); month < monthOf(end); month = nextMonth(month)) {
        if (isLong && month % 100 % 3 != 1)
            continue;
        const float x = scale.at(month * 100 + 1);
        svg.line(x, TimeAxis - 8, x, TimeAxis + 44, ChartGrid);
        svg.text(x + 5, TimeAxis + 42, monthAndYear(month), Anchor::Start, ChartSmall);
    }
    for (const BookFlight& flight : book.flights)
        drawFlight(svg, flight, scale.at(flight.date));
    std::vector<Flag> flags;
    const auto add = [&](int32_t date, const zel::String& words, bool isAward) {
        if (date >= begin && date < end)
            flags.push_back({date, words, isAward});
    };
    for (const RankGiven& given : honours.ranks)
        add(given.date, given.rank->name, false);
    for (const AwardGiven& given : honours.awards)
        add(given.date, awardText(*given.award), true);
    std::stable_sort(flags.begin(), flags.end(),
                     [](const Flag& a, const Flag& b) { return a.date < b.date; });
    placeFlags(flags, scale);
    drawFlags(svg, flags);
    return svg.element(textOf(wording::TimeLine), flightsText(book));
}

namespace {

struct Pixel {
    float x, y;
};
/// A part of a line, in lengths of the whole one.
struct Clip {
    float begin = 0;
    float end = 1;
    bool isEmpty() const { return begin >= end; }
};

/// Draws a sketch on its small map.
class MapDrawing {
public:
    explicit MapDrawing(const Sketch& sketch)
        : sketch(sketch), scale(MapWidth / sketch.frame.width()),
          height(MapWidth * SketchFrame::Shape), svg(MapWidth, height + 22) {}

    std::string draw(const zel::String& title, const zel::String& described) {
        svg.rect(0.5F, 0.5F, MapWidth - 1, height - 1, "fill=\"#EFE6CE\" stroke=\"#2A1E12\"");
        front(3, "stroke=\"#A3241B\" stroke-width=\"1.8\" stroke-dasharray=\"5 2\"");
        front(-3, "stroke=\"#23406B\" stroke-width=\"1.8\" stroke-dasharray=\"5 2\"");
        svg.beginLine();
        for (const MapPoint& point : sketch.way)
            svg.point(x(point), y(point));
        if (!sketch.way.empty())
            svg.endLine("stroke=\"#2A1E12\" stroke-width=\"1.5\" stroke-dasharray=\"6 3\"");
        for (const Town& town : sketch.towns)
            place(town.place, nameInLanguage(town.name), 2);
        if (sketch.hasBase) {
            svg.circle(x(sketch.base), y(sketch.base), 5, "fill=\"none\" stroke=\"#2A1E12\"");
            place(sketch.base, sketch.baseName, 2.5F);
        }
        for (const SketchMark& one : sketch.marks)
            mark(one);
        bar();
        return svg.element(title, described, "halo"); // lines run below the names
    }

private:
    float x(const MapPoint& point) const { return (point.z - sketch.frame.southWest.z) * scale; }
    float y(const MapPoint& point) const {
        return height - (point.x - sketch.frame.southWest.x) * scale;
    }
    /// The pieces of it on the map, moved so many pixels to its left.
    void front(float aside, const char* style) {
        bool isOpen = false;
        for (size_t i = 1; i < sketch.front.size(); ++i) {
            Pixel from{x(sketch.front[i - 1]), y(sketch.front[i - 1])};
            Pixel to{x(sketch.front[i]), y(sketch.front[i])};
            const float length = std::hypot(to.x - from.x, to.y - from.y);
            if (length <= 0)
                continue;
            const Pixel shift{(to.y - from.y) / length * aside, (from.x - to.x) / length * aside};
            from = {from.x + shift.x, from.y + shift.y};
            to = {to.x + shift.x, to.y + shift.y};
            const Clip part = onMap(from, to);
            if (isOpen && (part.isEmpty() || part.begin > 0)) {
                svg.endLine(style);
                isOpen = false;
            }
            if (part.isEmpty())
                continue;
            if (!isOpen)
                svg.beginLine();
            svg.point(from.x + (to.x - from.x) * part.begin, from.y + (to.y - from.y) * part.begin);
            svg.point(from.x + (to.x - from.x) * part.end, from.y + (to.y - from.y) * part.end);
            isOpen = part.end == 1;
            if (!isOpen)
                svg.endLine(style);
        }
        if (isOpen)
            svg.endLine(style);
    }
    /// Which part of that line is on the map.
    Clip onMap(const Pixel& from, const Pixel& to) const {
        constexpr float Edge = 1;
        Clip part;
        // room: from its begin to that edge; step: how far it goes that way.
        const auto cut = [&](float step, float room) {
            if (step > 0)
                part.end = std::min(part.end, room / step);
            else if (step < 0)
                part.begin = std::max(part.begin, room / step);
            else if (room < 0)
                part.end = 0;
        };
        cut(from.x - to.x, from.x - Edge);
        cut(to.x - from.x, MapWidth - Edge - from.x);
        cut(from.y - to.y, from.y - Edge);
        cut(to.y - from.y, height - Edge - from.y);
        return part;
    }
    void place(const MapPoint& place, const zel::String& name, float dot) {
        svg.circle(x(place), y(place), dot, "fill=\"#2A1E12\"");
        const bool isLeft = x(place) > MapWidth * 0.7F;
        svg.text(x(place) + (isLeft ? -6 : 6), y(place) + 4, name,
                 isLeft ? Anchor::End : Anchor::Start,
                 "font-size=\"11\" font-style=\"italic\" fill=\"#2A1E12\"");
    }
    void mark(const SketchMark& mark) {
        const float px = x(mark.place);
        const float py = y(mark.place);
        const char* ink = mark.isAllied ? "fill=\"none\" stroke=\"#23406B\" stroke-width=\"2.2\""
                                        : "fill=\"none\" stroke=\"#A3241B\" stroke-width=\"2.2\"";
        switch (mark.kind) {
        case SketchMark::Begin:
            break;
        case SketchMark::Hit:
            svg.circle(px, py, 2.5F, "fill=\"none\" stroke=\"#8E1F17\"");
            break;
        case SketchMark::OwnLoss:
            svg.circle(px, py, 9, ink);
            [[fallthrough]];
        case SketchMark::Loss:
            svg.path(px - 5, py - 5, "l10 10 m0 -10 l-10 10", ink);
            break;
        case SketchMark::Landing:
            svg.path(px, py - 5, "l5 9 h-10 Z", "fill=\"none\" stroke=\"#2A1E12\"");
            break;
        }
    }
    void bar() {
        const float square = MapWidth / static_cast<float>(SketchFrame::Columns);
        const float top = height + 12;
        svg.rect(4, top, 5 * square, 5, "fill=\"#2A1E12\"");
        svg.text(10 + 5 * square, top + 6,
                 textOf(wording::Kilometres, {5 * sketch.frame.kilometres}), Anchor::Start,
                 ChartSmall);
        svg.path(MapWidth - 10, height + 4, "l-4 15 l4 -4 l4 4 Z", "fill=\"#2A1E12\"");
        svg.text(MapWidth - 26, height + 17, textOf(wording::NorthMark), Anchor::Middle, Bold);
    }

    const Sketch& sketch;
    float scale;
    float height;
    Svg svg;
};

} // namespace

std::string sketchPicture(const Sketch& sketch, const zel::String& title,
                          const zel::String& described) {
    return MapDrawing(sketch).draw(title, described);
}
