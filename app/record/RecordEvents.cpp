#include "app/record/RecordEvents.h"

#include <algorithm>

#include "app/career/Checksum.h"
#include "app/career/Database.h"

namespace {

int32_t dayOf(const Database& career) { return career.calendar().dateNumber(); }

} // namespace

void RecordEvents::add(const Database& career, const Victory& victory) {
    const auto squadronOf = [&](int32_t pilot) {
        return pilot >= 0 ? career.pilot(pilot).squadron : -1;
    };
    const int32_t flight = victory.isSeen ? static_cast<int32_t>(flights.size()) - 1 : -1;
    victories.push_back(
        {dayOf(career), victory, squadronOf(victory.victor), squadronOf(victory.victim), flight});
}

void RecordEvents::add(const Database& career, const Posting& posting) {
    postings.push_back({dayOf(career), posting, career.pilot(posting.pilot).squadron});
}

void RecordEvents::addBase(const Database& career) {
    const Squadron& squadron = career.playerSquadron();
    bases.push_back({dayOf(career), career.player().squadron,
                     zel::String(zel::arrayText(squadron.baseName)), squadron.onChannelMap != 0,
                     squadron.baseX, squadron.baseZ});
}

void RecordEvents::add(const Database& career, const FlownMission& mission) {
    const Squadron& squadron = career.playerSquadron();
    const std::string_view log = mission.log;
    flights.push_back({dayOf(career), mission, zel::String(log.substr(log.find_last_of("/\\") + 1)),
                       checksumOfFile(mission.log), career.player().squadron,
                       zel::String(zel::arrayText(squadron.baseName)), squadron.onChannelMap != 0});
}

bool RecordEvents::hasFlight(const zel::String& log, const zel::String& hash) const {
    return std::any_of(flights.begin(), flights.end(), [&](const DatedFlight& flown) {
        return flown.log == log && flown.logHash == hash;
    });
}
