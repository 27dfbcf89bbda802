#include "app/book/RealSquadron.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "app/book/LogBook.h"
#include "app/career/Calendar.h"
#include "app/career/DataTokens.h"
#include "app/career/Database.h"

namespace {

constexpr size_t BestMen = 5;
constexpr size_t MenOfSquadron = 4;
constexpr int32_t Never = std::numeric_limits<int32_t>::max();

/// When a pilot file posts its man to which unit, by date.
using Postings = std::vector<std::pair<int32_t, std::string_view>>;

Postings postingsOf(const Database& career, const PilotFile& file, std::vector<DataToken>& tokens) {
    Postings postings;
    for (const int32_t line : file.lines) {
        if (line < 0)
            continue;
        splitDataLine(zel::arrayText(career.dataLine(line).text), tokens);
        std::pair<int32_t, std::string_view> posting;
        for (const DataToken& token : tokens) {
            if (token.is("date"))
                posting.first = zel::toInt(token.value);
            else if (token.is("unit"))
                posting.second = token.value;
        }
        if (posting.first > 0 && !posting.second.empty())
            postings.push_back(posting);
    }
    std::stable_sort(postings.begin(), postings.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    return postings;
}

/// The aces who served in the unit of that key, one row a posting, by the career's pilot files.
/// Nobody for an empty key.
std::vector<RealMember> realMembers(const Database& career, const BookTables& tables,
                                    const zel::String& key) {
    std::vector<RealMember> members;
    if (key.empty())
        return members;
    std::vector<DataToken> tokens;
    for (const PilotFile& file : career.pilotFiles) {
        const RealAce* ace = tables.ace(zel::arrayText(file.name));
        if (ace == nullptr || ace->victoryDays.empty())
            continue;
        const Postings postings = postingsOf(career, file, tokens);
        for (size_t i = 0; i < postings.size(); ++i)
            if (postings[i].second == key.view())
                members.push_back({ace, postings[i].first,
                                   i + 1 < postings.size() ? postings[i + 1].first : Never});
    }
    return members;
}

/// The five aces of all services who won most from one day up to, but not on, another.
std::vector<RealMember> bestOfTheFront(const BookTables& tables, int32_t since, int32_t end) {
    std::vector<std::pair<int32_t, RealMember>> men;
    for (const RealAce& ace : tables.aces) {
        const RealMember man{&ace, 0, Never};
        if (const int32_t won = man.victories(since, end); won > 0)
            men.emplace_back(won, man);
    }
    std::stable_sort(men.begin(), men.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<RealMember> best;
    for (size_t i = 0; i < std::min(men.size(), BestMen); ++i)
        best.push_back(men[i].second);
    return best;
}

} // namespace

int32_t RealMember::victories(int32_t since, int32_t end) const {
    const auto& days = ace->victoryDays;
    const auto first = std::lower_bound(days.begin(), days.end(), std::max(from, since));
    return int32_t(std::max<std::ptrdiff_t>(
        0, std::lower_bound(days.begin(), days.end(), std::min(until, end)) - first));
}

RealMen realMen(const LogBook& book, const Database& career, const BookTables& tables) {
    RealMen men;
    men.since = monthOf(book.flights.front().date) * 100 + 1;
    men.end = nextMonth(monthOf(book.flights.back().date)) * 100 + 1;
    std::map<int32_t, std::vector<RealMember>> units; // by squadron
    const auto scored = [&](const RealMember& man) { return man.victories(men.since, men.end); };
    size_t flight = 0;
    for (int32_t month = monthOf(men.since); month < monthOf(men.end); month = nextMonth(month)) {
        while (flight + 1 < book.flights.size() && monthOf(book.flights[flight + 1].date) <= month)
            ++flight;
        const int32_t squadron = book.flights[flight].squadron;
        if (units.count(squadron) == 0 && career.isSquadron(squadron))
            units[squadron] =
                realMembers(career, tables, zel::arrayText(career.squadron(squadron).key));
        men.months.push_back({month, units[squadron]});
        men.best = units[squadron];
    }
    men.best.erase(std::remove_if(men.best.begin(), men.best.end(),
                                  [&](const RealMember& man) { return scored(man) == 0; }),
                   men.best.end());
    if (men.best.empty()) {
        men.isFront = true;
        men.best = bestOfTheFront(tables, men.since, men.end);
        for (RealMen::SquadronMonth& month : men.months)
            month.men = men.best;
        return men;
    }
    std::stable_sort(
        men.best.begin(), men.best.end(),
        [&](const RealMember& a, const RealMember& b) { return scored(a) > scored(b); });
    men.best.resize(std::min(men.best.size(), MenOfSquadron));
    return men;
}

std::vector<MonthScore> monthScores(const LogBook& book, const RealMen& men) {
    std::vector<MonthScore> months;
    for (const RealMen::SquadronMonth& one : men.months) {
        MonthScore& score = months.emplace_back();
        score.month = one.month;
        for (const BookFlight& flight : book.flights)
            if (monthOf(flight.date) == one.month)
                score.own += flight.victories;
        for (const RealMember& man : one.men) {
            const int32_t won = man.victories(one.month * 100 + 1, nextMonth(one.month) * 100 + 1);
            if (won > score.best) {
                score.best = won;
                score.bestMan = man.ace->name;
            }
        }
    }
    return months;
}
