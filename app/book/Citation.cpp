#include "app/book/Citation.h"

#include <algorithm>

#include "app/book/CitationWording.h"
#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/career/CareerTexts.h"
#include "app/career/Nation.h"

namespace {

constexpr int32_t FirstDayOfAirForce = 19180401;
constexpr size_t TextsPerSide = 3;

size_t sideOf(int32_t nation) { return nation == France ? 1 : nation == Germany ? 2 : 0; }

/// What he had on that day.
Honours honoursOn(const Honours& all, int32_t date) {
    Honours then;
    for (const RankGiven& one : all.ranks)
        if (one.date <= date)
            then.ranks.push_back(one);
    for (const AwardGiven& one : all.awards)
        if (one.date <= date)
            then.awards.push_back(one);
    return then;
}

int32_t countBefore(const std::vector<int32_t>& days, int32_t date) {
    return int32_t(std::lower_bound(days.begin(), days.end(), date) - days.begin());
}

class Letters {
public:
    explicit Letters(const PilotRecord& pilot) : pilot(pilot) {}

    Citation ofRank(const RankGiven& given) const {
        return {given.date, given.rank->name, addressee(given.date),
                textOf(wording::NewRank, {given.rank->name}), "star"};
    }

    /// Three texts take turns.
    Citation ofAward(const AwardGiven& given, size_t number) const {
        const int32_t victories =
            int32_t(std::count_if(pilot.victories.begin(), pilot.victories.end(),
                                  [&](const PilotVictory& one) { return one.date < given.date; }));
        const Wording& text =
            wording::Citations[TextsPerSide * sideOf(pilot.nation) + number % TextsPerSide];
        return {
            given.date, awardText(*given.award), addressee(given.date),
            textOf(text,
                   {countText(wording::FlightsFlown, countBefore(pilot.flights, given.date)),
                    countText(wording::Victories, std::max(0, pilot.unrecorded()) + victories)}),
            given.award->worn == Worn::Bar ? given.award->after : given.award->key};
    }

private:
    zel::String addressee(int32_t date) const {
        Branch branch = Branch::Army;
        for (const RankGiven& one : pilot.honours.ranks)
            if (one.date <= date)
                branch = one.rank->branch;
        return textOf(wording::CitedPilot, {titleOf(honoursOn(pilot.honours, date), pilot.name),
                                            serviceName(pilot.nation, branch, date)});
    }

    const PilotRecord& pilot;
};

} // namespace

std::vector<Citation> citationsAfter(const PilotRecord& pilot, int32_t date) {
    const Letters letters(pilot);
    std::vector<Citation> all;
    int32_t level = 0;
    for (const RankGiven& one : pilot.honours.ranks) {
        if (one.date > std::max(date, pilot.since) && one.rank->level > level)
            all.push_back(letters.ofRank(one));
        level = std::max(level, one.rank->level);
    }
    size_t number = 0;
    for (const AwardGiven& one : pilot.honours.awards) {
        if (one.award->worn == Worn::None)
            continue;
        if (one.date > date)
            all.push_back(letters.ofAward(one, number));
        ++number;
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Citation& a, const Citation& b) { return a.date < b.date; });
    return all;
}

zel::String serviceName(int32_t nation, Branch branch, int32_t date) {
    if (nation == England && date >= FirstDayOfAirForce)
        return textOf(wording::AirForce);
    if (nation == England && branch == Branch::Navy)
        return textOf(wording::NavalAirService);
    return serviceName(nation);
}
