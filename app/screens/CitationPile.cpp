#include "app/screens/CitationPile.h"

#include <algorithm>
#include <utility>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"

void CitationPile::gather(const Database& career, int32_t newlyFallen) {
    const bool isSame = careerNumber == career.careerNumber && pilot == career.playerPilot;
    const int32_t today = career.calendar().dateNumber();
    const PilotRecord player = readPilot(record.read(career), career, career.playerPilot);
    const int32_t lastFlight = player.flights.empty() ? player.since : player.flights.back();
    const int32_t shown = isSame && date <= today ? date : 0;
    waiting.clear();
    fallenPilot = newlyFallen;
    for (const Citation& citation : citationsAfter(player, std::max(lastFlight, shown)))
        waiting.push_back(citation);
    careerNumber = career.careerNumber;
    pilot = career.playerPilot;
    date = today;
}

const char* CitationPile::next(const Database& career) const {
    if (fallenPilot >= 0)
        return "MenuGameFallen";
    if (!waiting.empty())
        return "MenuGameCitation";
    return isWarOver(career) ? "MenuGameWarOver" : "MenuGameDiary";
}

const char* CitationPile::back(const Database& career) {
    return std::exchange(isInterrupted, false) ? next(career) : nullptr;
}

Citation CitationPile::take() {
    Citation next = waiting.front();
    waiting.pop_front();
    return next;
}
