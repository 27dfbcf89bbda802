#include "app/career/SquadronActivation.h"

#include "app/career/Database.h"
#include "engine/core/Log.h"

namespace {

// Nations aim at a number of active squadrons that grows by the month, and generated ones make up
// for those that are missing. The delivered data has more files than SquadronsOfWar, so its careers
// have no generated squadrons, and the rule changes nothing there.
constexpr int32_t MonthsBeforeWar = 22980; // year * 12 + month of December 1914
constexpr int32_t MonthsOfStep = 3;
constexpr int32_t AlliedSquadronsOfStep = 5; // of France and of England each
constexpr int32_t GermanSquadronsOfStep = 10;

/// Places in the counts of active squadrons; -1 for a nation that isn't counted.
enum CountedNation : int32_t { CountedFrance, CountedEngland, CountedUsa, CountedGermany, Counted };

int32_t countedNation(int32_t nation) {
    switch (nation) {
    case France:
        return CountedFrance;
    case England:
        return CountedEngland;
    case Usa:
        return CountedUsa;
    case Germany:
        return CountedGermany;
    default:
        return -1;
    }
}

} // namespace

void activateSquadrons(Database& career, const Calendar& date) {
    const zel::String today = date.dateText();
    int32_t counts[Counted] = {};
    for (Squadron& squadron : career.squadrons) {
        const std::string_view earliest = zel::arrayText(squadron.earliestDate);
        if (!earliest.empty() && earliest <= today.view())
            squadron.active = 1;
        const int32_t nation = countedNation(squadron.nation);
        if (squadron.active != 0 && nation >= 0)
            ++counts[nation];
    }

    const int32_t months = date.getYear() * 12 + date.getMonth() - MonthsBeforeWar;
    int32_t targets[Counted] = {};
    targets[CountedFrance] = targets[CountedEngland] =
        AlliedSquadronsOfStep * months / MonthsOfStep;
    targets[CountedGermany] = GermanSquadronsOfStep * months / MonthsOfStep;
    for (Squadron& squadron : career.squadrons) {
        const int32_t nation = countedNation(squadron.nation);
        if (squadron.squadronFile >= 0 || nation < 0 || counts[nation] >= targets[nation])
            continue;
        // One that is active already counts again, on purpose: the strength may be reached early.
        squadron.active = 1;
        ++counts[nation];
    }
    if (zel::isLogged("Database", zel::LogInfo))
        zel::log(zel::String(" Active squadrons: English=") + counts[CountedEngland] +
                     " French=" + counts[CountedFrance] + " American=" + counts[CountedUsa] +
                     " German=" + counts[CountedGermany],
                 "Database", zel::LogInfo);
}
