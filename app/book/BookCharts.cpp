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
#include "app/report/Outcome.h"

namespace {

using Anchor = Svg::Anchor;

constexpr float ChartWidth = 940;
constexpr float HalfWidth = 460;
constexpr int32_t MonthsOfHalf = 7;
constexpr float MonthsHeight = 250;
constexpr float TimeHeight = 190;
constexpr int32_t MonthsWithNames = 14; // for more there is no room

constexpr const char* BlueText = "font-size=\"13\" fill=\"#23406B\"";
constexpr const char* RedText = "font-size=\"13\" fill=\"#8E1F17\"";

/// The highest value that gets a scale line.
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
    // Hatched, for colour-blind readers.
    const auto height = static_cast<int32_t>(std::ceil(own * unit));
    for (int32_t line = 4; line < height; line += 6) {
        const float y = ground - static_cast<float>(line);
        svg.line(x, y, x + bar, y, "stroke=\"#7E9158\" stroke-width=\"1.6\"");
    }
    svg.text(x + bar / 2, ground - own * unit - 5, month.own, Anchor::Middle, ChartBold);
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
        // Names are in two rows, since most are wider than a month.
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

/// Positions on the time axis.
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
