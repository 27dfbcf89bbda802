#include "app/book/Citation.h"

#include <algorithm>

#include "app/book/CitationWording.h"
#include "app/book/ServiceText.h"
#include "app/career/CareerTexts.h"
#include "app/career/Nation.h"

namespace {

constexpr int32_t FirstDayOfAirForce = 19180401;
constexpr size_t TextsPerService = 3;
constexpr size_t SaysWith = 2; // index of the text with the victories after "with"

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
        const size_t service = serviceIndex(pilot.nation);
        const int32_t victories = countBefore(pilot.served.victories, given.date);
        const Wording& text =
            victories == 0
                ? wording::NoVictoryCited[service]
                : wording::Citations[TextsPerService * service + number % TextsPerService];
        const bool isWith = &text == &wording::Citations[SaysWith];
        return {
            given.date, awardText(*given.award), addressee(given.date),
            textOf(text,
                   {countText(wording::InFlights, countBefore(pilot.served.flights, given.date)),
                    countText(isWith ? wording::WithVictories : wording::Victories, victories)}),
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
    for (const RankGiven& one : pilot.honours.promotions())
        if (one.date > std::max(date, pilot.since))
            all.push_back(letters.ofRank(one));
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

size_t serviceIndex(int32_t nation) { return nation == France ? 1 : nation == Germany ? 2 : 0; }

zel::String serviceName(int32_t nation, Branch branch, int32_t date) {
    if (nation == England && date >= FirstDayOfAirForce)
        return textOf(wording::AirForce);
    if (nation == England && branch == Branch::Navy)
        return textOf(wording::NavalAirService);
    return textOf(nation == England   ? wording::FlyingCorpsItself
                  : nation == Germany ? wording::GermanCorps
                  : nation == Usa     ? wording::AmericanCorps
                                      : wording::FrenchCorps);
}
