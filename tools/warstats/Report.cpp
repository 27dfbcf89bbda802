#include "tools/warstats/Report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Nation.h"
#include "app/career/NewCareer.h"

namespace warstats {

namespace {

constexpr double NoBound = 1e9;
constexpr int32_t LastMonthOfWar = FirstDayOfPeace / 100; // yyyymm, that of the Armistice
constexpr size_t FigureWidth = 68;
constexpr double Margin = 0.25; // of the best scores by nation
constexpr const char* NationNames[NationCount] = {"French", "British", "American", "German"};
constexpr double RealBest[NationCount] = {75, 72, 26, 80};

/// The number with that many decimals.
std::string digits(double value, int decimals) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string padded(std::string text, size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

std::string rightward(const std::string& text, size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string targetText(double least, double most) {
    if (most >= NoBound && least <= -NoBound)
        return "-";
    if (most >= NoBound)
        return ">= " + digits(least, 0);
    if (least <= -NoBound)
        return "<= " + digits(most, 0);
    return digits(least, 0) + (least < most ? " to " + digits(most, 0) : "");
}

/// Pearson's correlation of two series of one length; 0 if one of them doesn't vary.
double correlation(const std::vector<double>& a, const std::vector<double>& b) {
    const double meanA = std::accumulate(a.begin(), a.end(), 0.0) / double(a.size());
    const double meanB = std::accumulate(b.begin(), b.end(), 0.0) / double(b.size());
    double both = 0;
    double ofA = 0;
    double ofB = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        both += (a[i] - meanA) * (b[i] - meanB);
        ofA += (a[i] - meanA) * (a[i] - meanA);
        ofB += (b[i] - meanB) * (b[i] - meanB);
    }
    return ofA > 0 && ofB > 0 ? both / std::sqrt(ofA * ofB) : 0;
}

double total(const std::array<double, NationCount>& counts) {
    return std::accumulate(counts.begin(), counts.end(), 0.0);
}

/// The simulated figure that the real total is compared with.
double comparable(const RealTotal& real, const DayCounts& counts) {
    const std::array<double, NationCount>& figure = real.figure == "claimed" ? counts.claimed
                                                    : real.figure == "lost"  ? counts.lost
                                                                             : counts.dead;
    const double german = figure[nationIndex(Germany)];
    if (real.side == "Germany")
        return german;
    if (real.side == "England")
        return figure[nationIndex(England)];
    return real.side == "Allies" ? total(figure) - german : total(figure);
}

} // namespace

Report::Report(const std::vector<WarFigures>& wars, const Share& jastaStarts,
               const RealWarTables& real)
    : wars(wars) {
    lines = padded("Figure, mean of " + std::to_string(wars.size()) + " wars", FigureWidth) +
            rightward("Real", 6) + rightward("Here", 9) + "  " + padded("Range", 12) + "Target\n";
    addScores();
    addMen();
    addMissions(jastaStarts);
    addMonths(real);
    addTotals(real);
    lines += missed == 0 ? "\nAll targets are met.\n"
                         : "\n" + std::to_string(missed) + " targets are missed (!).\n";
}

template <typename Value> double Report::mean(const Value& valueOf) const {
    double sum = 0;
    for (const WarFigures& war : wars)
        sum += double(valueOf(war));
    return sum / double(wars.size());
}

template <typename Value> std::string Report::spread(const Value& valueOf) const {
    const auto isLess = [&](const WarFigures& a, const WarFigures& b) {
        return valueOf(a) < valueOf(b);
    };
    const auto [least, most] = std::minmax_element(wars.begin(), wars.end(), isLess);
    return digits(valueOf(*least), 0) + " to " + digits(valueOf(*most), 0);
}

template <typename Value> Share Report::shareOf(const Value& valueOf) const {
    Share share;
    for (const WarFigures& war : wars)
        share.add(valueOf(war));
    return share;
}

DayCounts Report::meanSum(int32_t from, int32_t until) const {
    DayCounts sum;
    for (const WarFigures& war : wars)
        sum.add(war.tally.sum(from, until), 1.0 / double(wars.size()));
    return sum;
}

void Report::addRow(const std::string& figure, const std::string& realValue, double value,
                    double least, double most, const std::string& spread) {
    const bool isMet = value >= least && value <= most;
    missed += isMet ? 0 : 1;
    lines += padded(figure, FigureWidth) + rightward(realValue, 6) +
             rightward(digits(value, 1), 9) + (isMet ? "  " : "! ") + padded(spread, 12) +
             targetText(least, most) + "\n";
}

void Report::addScores() {
    const auto ten = [](const WarFigures& war) { return war.historicAmongTen; };
    const auto twenty = [](const WarFigures& war) { return war.realAmongTwenty; };
    const auto forty = [](const WarFigures& war) { return war.historicForty; };
    const auto best = [](const WarFigures& war) { return war.best; };
    addRow("historic men among the ten best", "10", mean(ten), 8, NoBound, spread(ten));
    addRow("the real twenty best among the simulated twenty best", "20", mean(twenty), 4, NoBound,
           spread(twenty));
    addRow("historic men with 40 or more victories", "28", mean(forty), 20, 40, spread(forty));
    addRow("best score of the war", "80", mean(best), 65, 95, spread(best));
    for (size_t nation = 0; nation < NationCount; ++nation) {
        const auto ofNation = [&](const WarFigures& war) { return war.bestOf[nation]; };
        addRow(std::string("best ") + NationNames[nation], digits(RealBest[nation], 0),
               mean(ofNation), RealBest[nation] * (1 - Margin), RealBest[nation] * (1 + Margin),
               spread(ofNation));
    }
}

void Report::addMen() {
    addRow("historic survivors of the war who die, %", "0",
           shareOf([](const WarFigures& war) { return war.survivorsDead; }).percent(), -NoBound,
           72);
    addRow("historic dead who die before their date, %", "0",
           shareOf([](const WarFigures& war) { return war.deadEarly; }).percent(), -NoBound, 52);
    addDeaths(1917, 19171231, 22);
    addDeaths(1918, 19181110, 35);
    const auto aceNames = [](const WarFigures& war) { return war.aceNames; };
    const auto namesakes = [](const WarFigures& war) { return war.namesakes; };
    const auto men = [](const WarFigures& war) { return war.men; };
    addRow("invented men with the name of a historic ace", "0", mean(aceNames), 0, 0,
           spread(aceNames));
    addRow("namesakes of men before them, among " + digits(mean(men), 0) + " men", "-",
           mean(namesakes), -NoBound, 800, spread(namesakes));
}

void Report::addDeaths(int32_t year, int32_t until, double most) {
    const int32_t from = year * 10000 + 101;
    const DayCounts sum = meanSum(from, until);
    const int32_t days =
        Calendar::ofNumber(until).dayNumber() - Calendar::ofNumber(from).dayNumber() + 1;
    const double months = days / 30.44;
    const double strength = sum.strength / days;
    addRow("deaths per month of " + std::to_string(year) + " among the pilots on strength, %", "-",
           100 * total(sum.dead) / months / strength, -NoBound, most);
}

void Report::addMissions(const Share& jastaStarts) {
    for (size_t i = 0; i < EnemyMonths.size(); ++i) {
        const std::string month = std::to_string(EnemyMonths[i]);
        addRow("Germans who flew the type they meet the player in, " + month + ", %", "100",
               shareOf([&](const WarFigures& war) { return war.realGermans[i]; }).percent(), 80,
               NoBound);
        addRow("Allies who flew the type they meet the player in, " + month + ", %", "100",
               shareOf([&](const WarFigures& war) { return war.realAllies[i]; }).percent(),
               -NoBound, NoBound);
    }
    addRow("Allied missions of 1917 that meet a historic man, %", "-",
           shareOf([](const WarFigures& war) { return war.metHistoric; }).percent(), 25, NoBound);
    const auto unnamed = [](const WarFigures& war) { return war.unnamedInvitations.hits; };
    addRow("invitations from units of two-seaters, in every period", "-", mean(unnamed), 0, 0,
           spread(unnamed));
    addRow("German careers that begin in a Jasta, %", "-", jastaStarts.percent(), 65, NoBound);
}

void Report::addMonths(const RealWarTables& real) {
    lines += "\nVictories by month   Itemised lists   All men   Historic men\n";
    std::vector<double> lists;
    std::vector<double> all;
    std::vector<double> historic;
    for (int32_t month = FirstMonthOfCareer; month <= LastMonthOfWar; month = nextMonth(month)) {
        const DayCounts sum =
            meanSum(month * 100 + 1, month * 100 + Calendar::daysInMonth(month / 100, month % 100));
        const auto found = real.victories.find(month);
        lists.push_back(found != real.victories.end() ? found->second : 0);
        all.push_back(total(sum.claimed));
        historic.push_back(sum.byHistoric);
        lines += padded(std::to_string(month), 18) + rightward(digits(lists.back(), 0), 17) +
                 rightward(digits(all.back(), 0), 10) + rightward(digits(historic.back(), 0), 15) +
                 "\n";
    }
    lines += "correlation with the lists: all men " + digits(correlation(lists, all), 2) +
             ", historic men " + digits(correlation(lists, historic), 2) + "\n";
}

void Report::addTotals(const RealWarTables& real) {
    lines += "\nFrom     To       Side     What      Real    Here   of the real war\n";
    for (const RealTotal& row : real.totals)
        lines += std::to_string(row.from) + " " + std::to_string(row.until) + " " +
                 padded(row.side, 9) + padded(row.figure, 8) + rightward(digits(row.count, 0), 6) +
                 rightward(digits(comparable(row, meanSum(row.from, row.until)), 0), 8) + "   " +
                 row.what + "\n";
}

} // namespace warstats
