#include "tools/warstats/WarTally.h"

#include <algorithm>

#include "app/career/CareerEvents.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"

namespace warstats {

namespace {

constexpr int32_t Nations[NationCount] = {France, England, Usa, Germany};

int32_t firstDay() { return Calendar::ofNumber(FirstDayOfCareer).dayNumber(); }

double strengthOf(const Database& career) {
    double strength = 0;
    for (const Squadron& squadron : career.squadrons)
        for (int32_t slot = 0; slot < squadron.pilotCount; ++slot)
            strength += career.pilot(squadron.slots[slot]).alive;
    return strength;
}

} // namespace

size_t nationIndex(int32_t code) {
    return static_cast<size_t>(std::find(std::begin(Nations), std::end(Nations), code) -
                               std::begin(Nations));
}

void DayCounts::add(const DayCounts& other, double share) {
    for (size_t nation = 0; nation < NationCount; ++nation) {
        claimed[nation] += other.claimed[nation] * share;
        lost[nation] += other.lost[nation] * share;
        dead[nation] += other.dead[nation] * share;
    }
    byHistoric += other.byHistoric * share;
    strength += other.strength * share;
}

void WarTally::onVictory(const Database& career, const Victory& victory) {
    const Pilot& victor = career.pilot(victory.victor);
    const size_t nation = nationIndex(victor.nation);
    if (nation < NationCount)
        ++period.claimed[nation];
    period.byHistoric += victor.historic;
    const size_t victims = nationIndex(career.pilot(victory.victim).nation);
    if (victims < NationCount)
        ++period.lost[victims];
}

void WarTally::onPosting(const Database& career, const Posting& posting) {
    if (posting.kind != PostingKind::Died)
        return;
    const Pilot& pilot = career.pilot(posting.pilot);
    const size_t nation = nationIndex(pilot.nation);
    if (nation < NationCount)
        ++period.dead[nation];
    if (pilot.historic != 0)
        deathOf.emplace(posting.pilot, career.calendar().dateNumber());
}

void WarTally::closePeriod(const Database& career) {
    const int32_t day = career.calendar().dayNumber();
    const int32_t count = day - closed;
    if (closed != 0 && count > 0) {
        days.resize(static_cast<size_t>(day) - static_cast<size_t>(firstDay()) + 1);
        for (auto at = days.end() - count; at != days.end(); ++at) {
            at->add(period, 1.0 / count);
            at->strength = strengthOf(career);
        }
    }
    closed = day;
    period = {};
}

DayCounts WarTally::sum(int32_t from, int32_t until) const {
    const int32_t first = std::max(Calendar::ofNumber(from).dayNumber() - firstDay(), 0);
    const int32_t last = std::min(Calendar::ofNumber(until).dayNumber() - firstDay() + 1,
                                  static_cast<int32_t>(days.size()));
    DayCounts result;
    for (int32_t day = first; day < last; ++day)
        result.add(days[day], 1);
    return result;
}

} // namespace warstats
