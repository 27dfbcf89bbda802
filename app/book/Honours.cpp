#include "app/book/Honours.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "app/career/Calendar.h"
#include "app/career/Nation.h"
#include "app/career/UnitNames.h"

namespace {

constexpr const char* CroixDeGuerre = "croix";

int32_t dayAfter(int32_t date) {
    Calendar day = Calendar::ofNumber(date);
    day.addDays(1);
    return day.dateNumber();
}

/// The same day `months` months later, or the last one of its month.
int32_t monthsLater(int32_t date, int32_t months) {
    const int32_t month = date / 10000 * 12 + date / 100 % 100 - 1 + months;
    const int32_t year = month / 12;
    const int32_t last = Calendar::daysInMonth(year, month % 12 + 1);
    return year * 10000 + (month % 12 + 1) * 100 + std::min(date % 100, last);
}

int32_t countUpTo(const std::vector<int32_t>& days, int32_t date) {
    return int32_t(std::upper_bound(days.begin(), days.end(), date) - days.begin());
}

bool isOf(Branch row, Branch own) { return row == Branch::Any || row == own; }

template <typename Row> bool isInForce(const Row& row, int32_t date) {
    return row.from <= date && date <= row.until;
}

/// Goes through the days on which something can be earned.
class Course {
public:
    Course(const PilotService& service, const BookTables& tables)
        : service(service), tables(tables) {}

    Honours run() {
        setRank(service.since, startRank());
        for (const int32_t day : days()) {
            const int32_t date = dayAfter(day);
            if (date > service.until)
                break;
            keepRank(date);
            promote(day, date);
            decorate(day, date);
        }
        keepRank(service.until);
        const auto croix =
            std::find_if(given.awards.begin(), given.awards.end(),
                         [](const AwardGiven& one) { return one.award->key == CroixDeGuerre; });
        if (croix != given.awards.end())
            given.palms = std::max(0, countUpTo(service.victories, service.until) - 1);
        return given;
    }

private:
    /// All days on which a condition of the tables can come true.
    std::set<int32_t> days() const {
        std::set<int32_t> all(service.victories.begin(), service.victories.end());
        all.insert(service.flights.begin(), service.flights.end());
        for (const RankRow& rank : tables.ranks)
            if (rank.nation == service.nation)
                for (const int32_t months : {(rank.months + 1) / 2, rank.months, 2 * rank.months})
                    all.insert(monthsLater(service.since, months));
        for (const PilotService::BranchChange& change : service.branches)
            all.insert(change.date);
        all.erase(all.begin(), all.lower_bound(service.since));
        return all;
    }

    Branch branchOn(int32_t date) const {
        Branch branch = Branch::Army;
        for (const PilotService::BranchChange& change : service.branches)
            if (change.date <= date || &change == &service.branches.front())
                branch = change.branch;
        return branch;
    }

    bool isHeldOn(const RankRow& rank, int32_t date) const {
        return rank.nation == service.nation && isInForce(rank, date) &&
               isOf(rank.branch, branchOn(date));
    }

    const RankRow* startRank() const {
        for (const RankRow& rank : tables.ranks)
            if (rank.isStart && isHeldOn(rank, service.since))
                return &rank;
        return nullptr;
    }

    void setRank(int32_t date, const RankRow* rank, bool isEarned = false) {
        if (rank == nullptr)
            return;
        level = std::max(level, rank->level);
        if (given.rank() == nullptr || given.rank()->name != rank->name)
            given.ranks.push_back({date, rank, isEarned});
        else
            given.ranks.back().rank = rank;
    }

    /// In another branch, or when the services change, he gets the new branch's rank of his level,
    /// or the next lower one.
    void keepRank(int32_t date) {
        const RankRow* held = given.rank();
        if (held == nullptr || isHeldOn(*held, date))
            return;
        const RankRow* equal = nullptr;
        for (const RankRow& rank : tables.ranks)
            if (isHeldOn(rank, date) && (equal == nullptr || rank.level <= level) &&
                rank.isOfficer == held->isOfficer)
                equal = &rank;
        if (equal == nullptr)
            return;
        // The day on which the new ranks came, if that is why.
        const bool isAnotherTime = !isInForce(*held, date) && equal->from > given.ranks.back().date;
        setRank(isAnotherTime ? std::min(equal->from, date) : date, equal);
    }

    bool hasServedFor(const RankRow& rank, int32_t day) const {
        const int32_t victories = countUpTo(service.victories, day);
        int32_t months = rank.months;
        if (victories >= 2 * rank.victories)
            months = (months + 1) / 2;
        else if (victories < rank.victories)
            months *= 2;
        return monthsLater(service.since, months) <= day && hasFlown(rank.flights, day);
    }

    bool hasFlown(int32_t flights, int32_t day) const {
        return !service.hasFlights || countUpTo(service.flights, day) >= flights;
    }

    void promote(int32_t day, int32_t date) {
        for (const RankRow& rank : tables.ranks) {
            if (rank.level <= level || !isHeldOn(rank, date))
                continue;
            if (rank.months > 0 && hasServedFor(rank, day))
                setRank(date, &rank, true);
            return;
        }
    }

    bool isEarned(const AwardRow& award, int32_t day) const {
        int32_t victories = countUpTo(service.victories, day);
        if (award.countsOwn)
            victories -= countUpTo(service.victories, award.from - 1);
        if (award.flightsAlone > 0 && service.hasFlights &&
            countUpTo(service.flights, day) >= award.flightsAlone)
            return true;
        return victories >= award.victories && hasFlown(award.flights, day);
    }

    bool mayHold(const AwardRow& award, int32_t date) const {
        const RankRow* rank = given.rank();
        const bool isOfficer = rank != nullptr && rank->isOfficer;
        return award.nation == service.nation && isInForce(award, date) &&
               isOf(award.branch, branchOn(date)) && !given.has(award.key) &&
               (award.after.empty() || given.has(award.after)) &&
               (award.holders == AwardRow::All ||
                (award.holders == AwardRow::Officers) == isOfficer);
    }

    /// All those that aren't worn, and the lowest of the others: the higher one comes next time.
    void decorate(int32_t day, int32_t date) {
        const AwardRow* next = nullptr;
        for (const AwardRow& award : tables.awards) {
            if (!mayHold(award, date) || !isEarned(award, day))
                continue;
            if (award.worn == Worn::None)
                given.awards.push_back({date, &award});
            else if (next == nullptr || award.place > next->place)
                next = &award;
        }
        if (next != nullptr)
            given.awards.push_back({date, next});
    }

    const PilotService& service;
    const BookTables& tables;
    Honours given;
    int32_t level = 0; // of his rank, in whatever branch he got it
};

zel::String withLetters(const Honours& honours, zel::String title) {
    for (const AwardGiven& one : honours.ribbons())
        if (!one.award->letters.empty())
            title += " " + one.award->letters;
    return title;
}

} // namespace

bool Honours::has(std::string_view key) const {
    return std::any_of(awards.begin(), awards.end(),
                       [&](const AwardGiven& one) { return one.award->key == key; });
}

std::vector<RankGiven> Honours::promotions() const {
    std::vector<RankGiven> earned;
    std::copy_if(ranks.begin(), ranks.end(), std::back_inserter(earned),
                 [](const RankGiven& one) { return one.isEarned; });
    return earned;
}

std::vector<AwardGiven> Honours::ribbons() const {
    std::vector<AwardGiven> worn;
    for (const AwardGiven& one : awards)
        if (one.award->worn == Worn::Ribbon)
            worn.push_back(one);
    std::stable_sort(worn.begin(), worn.end(), [](const AwardGiven& a, const AwardGiven& b) {
        return a.award->place < b.award->place;
    });
    return worn;
}

const AwardRow* Honours::barOf(const AwardRow& award) const {
    for (const AwardGiven& one : awards)
        if (one.award->worn == Worn::Bar && one.award->after == award.key)
            return one.award;
    return nullptr;
}

Honours honoursOn(const Honours& all, int32_t date) {
    Honours then;
    for (const RankGiven& one : all.ranks)
        if (one.date <= date)
            then.ranks.push_back(one);
    for (const AwardGiven& one : all.awards)
        if (one.date < date)
            then.awards.push_back(one);
    return then;
}

Branch branchOfUnit(int32_t number) { return isNavalUnit(number) ? Branch::Navy : Branch::Army; }

Honours honoursOf(const PilotService& service, const BookTables& tables) {
    return Course(service, tables).run();
}

zel::String titleOf(const Honours& honours, const zel::String& name) {
    const RankRow* rank = honours.rank();
    return withLetters(honours, rank == nullptr ? name : rank->name + " " + name);
}

zel::String shortTitleOf(const Honours& honours, const zel::String& name) {
    const RankRow* rank = honours.rank();
    return withLetters(honours, rank == nullptr ? name : rank->shortName + " " + name);
}
