#include "app/screens/CitationPile.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/record/CareerRecord.h"

void CitationPile::gather(const Database& career) {
    const bool isSame = careerNumber == career.careerNumber && pilot == career.playerPilot;
    const int32_t today = career.calendar().dateNumber();
    const PilotRecord player = readPilot(record.read(career), career, career.playerPilot);
    const int32_t lastFlight = player.flights.empty() ? player.since : player.flights.back();
    const int32_t shown = isSame && date <= today ? date : 0;
    waiting.clear();
    for (const Citation& citation : citationsAfter(player, std::max(lastFlight, shown)))
        waiting.push_back(citation);
    careerNumber = career.careerNumber;
    pilot = career.playerPilot;
    date = today;
}

Citation CitationPile::take() {
    Citation next = waiting.front();
    waiting.pop_front();
    return next;
}
