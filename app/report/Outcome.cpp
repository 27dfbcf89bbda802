#include "app/report/Outcome.h"

#include <algorithm>
#include <cmath>

#include "app/career/CareerTexts.h"
#include "app/career/GroundObjects.h"
#include "app/report/FlightAccount.h"
#include "app/report/ReportWording.h"

namespace {

constexpr float SecondsPerMinute = 60;
constexpr size_t MostNames = 2; // of a man's victims, and how many more

/// Who is to blame for a lost plane.
enum class LossBy { NotLost, Enemy, OwnSide, Nobody };

struct Loss {
    LossBy kind = LossBy::NotLost;
    int32_t by = -1;
};

Loss lossOf(const PilotReport& pilot) {
    if (pilot.shotDown == 0)
        return {};
    if (pilot.shotdownBy >= 0)
        return {LossBy::Enemy, pilot.shotdownBy};
    if (pilot.shotdownByOwn >= 0)
        return {LossBy::OwnSide, pilot.shotdownByOwn};
    return {LossBy::Nobody, -1};
}

bool isFight(FlightEventKind kind) {
    return kind == FlightEventKind::Hit || kind == FlightEventKind::Damage ||
           kind == FlightEventKind::Wound;
}

bool isEnd(FlightEventKind kind) {
    return kind == FlightEventKind::Kill || kind == FlightEventKind::Crash ||
           kind == FlightEventKind::Death;
}

/// What the events show of one record.
struct Traces {
    int32_t shots = 0;        // that hit it
    int32_t lastHitter = -1;  // by shots or otherwise
    bool hasOneHitter = true; // nobody else has hit it
    float end = -1;           // when it was lost; negative for never
};

} // namespace

/// The outcome of one record.
class Judgement {
public:
    Judgement(size_t place, const Outcomes& flight)
        : flight(flight), place(static_cast<int32_t>(place)), pilot(flight.reports[place]),
          loss(lossOf(pilot)) {}

    zel::String fate() const;
    zel::String cause() const;
    zel::String reason() const;
    bool isUntouched() const;

private:
    const PilotReport& report(int32_t record) const { return flight.reports[record]; }
    const std::vector<const FlightEvent*>& suffered(int32_t record) const {
        return flight.suffered[record];
    }
    bool isYou(int32_t record) const { return record >= 0 && report(record).human != 0; }
    /// The name in the plan is without what the mission adds to it.
    zel::String name(int32_t record) const {
        const PilotReport& one = report(record);
        return one.plannedName.empty() ? reportedName(one) : one.plannedName;
    }
    /// The form for the player as the one it was done to, or for all others.
    zel::String ofHim(const wording::ReasonForms& forms, const zel::String& argument = {}) const {
        return textOf(forms[pilot.human != 0 ? 2 : 0], {argument});
    }
    /// The form for the player as the one who did it, or for all others.
    template <size_t Count>
    zel::String by(const Wording (&forms)[Count], int32_t actor,
                   const zel::String& second = {}) const {
        return isYou(actor) ? textOf(forms[1], {second}) : textOf(forms[0], {name(actor), second});
    }
    /// The log may lack hits and damage.
    bool isCut() const { return flight.events.size() >= MostFlightEvents; }

    Traces traces(int32_t record) const;
    bool isNamed(int32_t victor, int32_t victim) const;
    bool hasShot(int32_t shooter, int32_t target) const;
    /// Seconds from the victor's last hit to the end of the victim; negative if that isn't known.
    int32_t secondsBefore(int32_t victor, int32_t victim) const;

    zel::String whyEnemy() const;
    zel::String whyOwnSide() const;
    zel::String whyNobody() const;
    zel::String whyNotCounted() const;
    zel::String whyCredited() const;
    zel::String whySurvived() const;
    zel::String victims() const;

    const Outcomes& flight;
    const int32_t place;
    const PilotReport& pilot;
    const Loss loss;
};

zel::String Judgement::fate() const {
    const bool landed = pilot.flightStatus == 1;
    if (pilot.killCount != 0)
        return textOf(wording::DiedInTheAir);
    if (pilot.dead != 0)
        return textOf(wording::CrashedAndDied);
    if (pilot.injuryPercent > SevereInjury)
        return textOf(wording::SevereInjuries);
    if (pilot.injuryPercent > ModerateInjury)
        return textOf(wording::Injured);
    if (pilot.injuryPercent > 0)
        return textOf(wording::SlightInjuries);
    if (pilot.damage >= NotedDamage) {
        const bool destroyed = pilot.damage >= DestroyingDamage;
        if (landed)
            return textOf(destroyed ? wording::LandedDestroyed : wording::LandedDamaged);
        return textOf(destroyed ? wording::Destroyed : wording::Damaged);
    }
    if (landed)
        return textOf(wording::Escaped);
    return textOf(pilot.shotdownBy >= 0 ? wording::Survived : wording::NoDamage);
}

zel::String Judgement::cause() const {
    const bool dead = pilot.dead != 0;
    const auto with = [&](const Wording& text) {
        return textOf(text, {reportedName(report(loss.by))});
    };
    switch (loss.kind) {
    case LossBy::Enemy:
        return with(dead ? wording::KilledBy : wording::ShotdownBy);
    case LossBy::OwnSide:
        return with(dead ? wording::KilledByOwn : wording::ShotdownByOwn);
    case LossBy::Nobody:
        return textOf(wording::Crashed);
    default:
        return {};
    }
}

zel::String Judgement::reason() const {
    if (pilot.human != 0 && pilot.pilot < 0)
        return textOf(wording::NobodyLikeYou);
    switch (loss.kind) {
    case LossBy::Enemy:
        return whyEnemy();
    case LossBy::OwnSide:
        return whyOwnSide();
    case LossBy::Nobody:
        return whyNobody();
    default:
        break;
    }
    if (pilot.dead != 0)
        return ofHim(wording::DiedOfWounds);
    if (pilot.pilot < 0)
        return whyNotCounted();
    return pilot.kills.empty() ? whySurvived() : whyCredited();
}

zel::String Judgement::whyEnemy() const {
    if (isNamed(loss.by, place))
        return by(wording::NamedVictor, loss.by);
    const int32_t seconds = secondsBefore(loss.by, place);
    if (seconds < 0)
        return by(wording::LastToHit, loss.by);
    return by(wording::LastToHitAt, loss.by, countText(wording::BeforeCrash, seconds));
}

zel::String Judgement::whyOwnSide() const {
    if (loss.by == place)
        return ofHim(wording::OwnDoing);
    const bool named = isNamed(loss.by, place);
    if (hasShot(loss.by, place))
        return by(named ? wording::OwnFireNamed : wording::OwnFireLast, loss.by);
    if (isCut())
        return by(named ? wording::OwnSideNamed : wording::OwnSideLast, loss.by);
    return by(named ? wording::CollisionNamed : wording::CollisionLast, loss.by);
}

zel::String Judgement::whyNobody() const {
    return isUntouched() ? ofHim(wording::NobodyHit) : textOf(wording::NobodyNamed);
}

zel::String Judgement::whyNotCounted() const {
    return textOf(wording::NotInOrders[groundObject(pilot.type) != nullptr ? 1 : 0]);
}

zel::String Judgement::victims() const {
    const size_t count = pilot.kills.size();
    const size_t named = count > MostNames + 1 ? MostNames : count;
    std::vector<zel::String> names;
    for (size_t i = 0; i < named; ++i)
        names.push_back(name(pilot.kills[i]));
    return named == count ? enumerated(names)
                          : textOf(wording::AndMoreNames,
                                   {listed(names), static_cast<int32_t>(count - named)});
}

zel::String Judgement::whyCredited() const {
    const auto named = std::count_if(pilot.kills.begin(), pilot.kills.end(),
                                     [&](int32_t victim) { return isNamed(place, victim); });
    const zel::String list = victims();
    if (named == static_cast<std::ptrdiff_t>(pilot.kills.size()))
        return ofHim(wording::VictorOver, list);
    if (named > 0)
        return textOf(wording::CreditedMixed, {list});
    if (pilot.kills.size() > 1)
        return textOf(wording::CreditedEach, {list});
    const int32_t seconds = secondsBefore(place, pilot.kills.front());
    if (seconds < 0)
        return textOf(wording::Credited, {list});
    return textOf(wording::CreditedAt, {list, countText(wording::BeforeCrash, seconds)});
}

zel::String Judgement::whySurvived() const {
    const Traces found = traces(place);
    const bool landed = pilot.flightStatus == 1;
    if (found.lastHitter >= 0) {
        const auto& forms = found.shots == 0     ? wording::DamagedBy
                            : found.hasOneHitter ? (landed ? wording::HitByLanded : wording::HitBy)
                            : landed             ? wording::SeveralLanded
                                                 : wording::HitBySeveral;
        const zel::String times =
            textOf(wording::Times[std::clamp(found.shots, 1, 3) - 1], {found.shots});
        if (pilot.human == 0 && isYou(found.lastHitter))
            return textOf(forms[1], {times});
        return textOf(forms[pilot.human != 0 ? 2 : 0], {name(found.lastHitter), times});
    }
    if (pilot.damage >= NotedDamage || pilot.injuryPercent > 0)
        return textOf(wording::DamagedByNobody);
    if (const float seconds = flight.landing[place]; seconds >= 0) {
        const auto minutes = static_cast<int32_t>(seconds / SecondsPerMinute);
        return ofHim(wording::LandedAfter, countText(wording::Minutes, minutes));
    }
    return flight.isSeen[place] ? ofHim(wording::NoLanding) : textOf(wording::OnlyNamed);
}

Traces Judgement::traces(int32_t record) const {
    Traces found;
    int32_t first = -1;
    for (const FlightEvent* event : suffered(record)) {
        if (isFight(event->kind) && event->actor >= 0 && event->actor != record) {
            if (event->kind == FlightEventKind::Hit)
                found.shots += static_cast<int32_t>(event->amount);
            if (first < 0)
                first = event->actor;
            found.hasOneHitter = found.hasOneHitter && event->actor == first;
            found.lastHitter = event->actor;
        }
        if (isEnd(event->kind) && found.end < 0)
            found.end = event->seconds;
    }
    return found;
}

bool Judgement::isNamed(int32_t victor, int32_t victim) const {
    const auto& events = suffered(victim);
    return std::any_of(events.begin(), events.end(), [&](const FlightEvent* event) {
        return isEnd(event->kind) && event->actor == victor;
    });
}

bool Judgement::hasShot(int32_t shooter, int32_t target) const {
    const auto& events = suffered(target);
    return std::any_of(events.begin(), events.end(), [&](const FlightEvent* event) {
        return event->kind == FlightEventKind::Hit && event->actor == shooter;
    });
}

/// A hit by somebody whom the log doesn't list also counts as another's.
bool Judgement::isUntouched() const {
    const auto& events = suffered(place);
    return !isCut() && std::none_of(events.begin(), events.end(), [&](const FlightEvent* event) {
        return event->actor >= 0 ? isFight(event->kind) && event->actor != place
                                 : event->kind == FlightEventKind::Hit;
    });
}

int32_t Judgement::secondsBefore(int32_t victor, int32_t victim) const {
    const float end = traces(victim).end;
    float last = -1;
    for (const FlightEvent* event : suffered(victim))
        if (isFight(event->kind) && event->actor == victor)
            last = event->seconds;
    return last < 0 || last > end ? -1 : static_cast<int32_t>(std::lround(end - last));
}

Outcomes::Outcomes(const std::vector<PilotReport>& reports, const std::vector<FlightEvent>& events)
    : reports(reports), events(events), suffered(reports.size()), isSeen(reports.size()),
      landing(reports.size(), -1) {
    const auto has = [&](int32_t record) {
        return record >= 0 && static_cast<size_t>(record) < reports.size();
    };
    for (const FlightEvent& event : events) {
        const auto actor = static_cast<size_t>(event.actor);
        const auto target = static_cast<size_t>(event.target);
        if (has(event.target)) {
            suffered[target].push_back(&event);
            isSeen[target] = true;
        }
        if (!has(event.actor))
            continue;
        isSeen[actor] = true;
        if (event.kind == FlightEventKind::Landing)
            landing[actor] = event.seconds;
    }
}

Outcome Outcomes::of(size_t place) const {
    const Judgement judgement(place, *this);
    return {judgement.fate(), judgement.cause(), judgement.reason()};
}

bool Outcomes::isUntouched(size_t place) const { return Judgement(place, *this).isUntouched(); }
