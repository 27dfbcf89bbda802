#include "app/screens/CitationPile.h"

#include <algorithm>
#include <utility>

#include "app/book/BookTables.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "engine/core/Language.h"

void CitationPile::gather(const Database& career, int32_t newlyFallen) {
    const bool isSame = careerNumber == career.careerNumber && pilot == career.playerPilot;
    const int32_t today = career.calendar().dateNumber();
    const PilotRecord player =
        readPilot(record.read(career), career, BookTables::instance(), career.playerPilot);
    const int32_t lastFlight = player.flights.empty() ? player.since : player.flights.back();
    const int32_t shown = isSame && date <= today ? date : 0;
    waiting.clear();
    fallenPilot = newlyFallen;
    givenAfter = std::max(lastFlight, shown);
    language = zel::Language::getCode();
    for (const Citation& citation : citationsAfter(player, givenAfter))
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

void CitationPile::translate(const Database& career) {
    if (language == zel::Language::getCode())
        return;
    language = zel::Language::getCode();
    const PilotRecord player =
        readPilot(record.read(career), career, BookTables::instance(), pilot);
    const std::vector<Citation> all = citationsAfter(player, givenAfter);
    if (all.size() >= waiting.size())
        waiting.assign(all.end() - std::ptrdiff_t(waiting.size()), all.end());
}

const Citation& CitationPile::front(const Database& career) {
    translate(career);
    return waiting.front();
}
