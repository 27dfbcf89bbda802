#include "app/report/ReportRules.h"

#include "app/report/LogEventType.h"
#include "engine/core/Log.h"

namespace {

constexpr int32_t HasLanded = 1; // flight status
constexpr int32_t HasTakenOff = 2;

void judgeWounds(PilotReport& pilot) {
    const bool killed = pilot.killCount != 0;
    if (killed || pilot.injury > DeadlyInjury)
        pilot.dead = 1;
    if (!killed && pilot.injury <= 0)
        return;
    const float percent = pilot.injury * 100;
    pilot.injuryPercent = killed || percent > 100 ? 100 : int32_t(percent);
}

} // namespace

void ReportRules::take(const LogEvent& event) {
    switch (event.number(LogKey::AType)) {
    case LogObject:
        takeObject(event);
        break;
    case LogDestroyed:
        takeDestruction(event.number(LogKey::Aid), event.number(LogKey::Tid));
        break;
    case LogDamage:
        takeHit(event.number(LogKey::Aid), event.number(LogKey::Tid),
                zel::toFloat(event.value(LogKey::Dmg)));
        break;
    case LogHit:
        takeHit(event.number(LogKey::Aid), event.number(LogKey::Tid), 0);
        break;
    case LogTakeOff:
        if (PilotReport* record = recordOf(event.number(LogKey::Pid)))
            record->flightStatus = HasTakenOff;
        break;
    case LogLanding:
        if (PilotReport* record = recordOf(event.number(LogKey::Pid)))
            record->flightStatus = HasLanded;
        break;
    case LogHumanPlane:
        if (PilotReport* record = recordOf(event.number(LogKey::Pid)))
            record->human = 1;
        break;
    case LogCrewEnded:
        if (PilotReport* record = recordOf(event.number(LogKey::BotId)))
            record->finished = 1;
        break;
    default:
        break;
    }
}

PilotReport* ReportRules::recordOf(int32_t id) {
    const int32_t index = objects.find(id);
    return index >= 0 ? &pilots[index] : nullptr;
}

/// An object without a parent gets a record; a part of a plane becomes its pilot's body.
void ReportRules::takeObject(const LogEvent& event) {
    const int32_t id = event.number(LogKey::Id);
    const int32_t parent = event.number(LogKey::Pid);
    const int32_t plane = objects.findPlane(parent < 0 ? id : parent);
    if (parent >= 0) {
        if (plane >= 0)
            objects.setBody(plane, id);
        else
            zel::log(zel::String("Plane with ID ") + parent + " was not found", "CombatReport",
                     zel::LogWarning);
        return;
    }
    if (plane >= 0)
        return;
    PilotReport& pilot = pilots.emplace_back();
    pilot.name = zel::String(event.value(LogKey::Name));
    pilot.type = zel::String(event.value(LogKey::Type));
    pilot.country = event.number(LogKey::Country);
    pilot.planeId = id;
}

void ReportRules::takeDestruction(int32_t attackerId, int32_t targetId) {
    const int32_t target = objects.find(targetId);
    const int32_t attacker = objects.find(attackerId);
    if (target < 0)
        return;
    PilotReport& victim = pilots[target];
    if (victim.shotdownBy < 0) {
        victim.shotDown = 1;
        if (attacker >= 0 && attacker != target) {
            PilotReport& victor = pilots[attacker];
            if (victor.country == victim.country) {
                victim.shotdownByOwn = attacker;
            } else {
                victim.shotdownBy = attacker;
                victor.kills.push_back(target);
            }
        }
    }
    if (victim.planeId != targetId) // the pilot himself was killed
        ++victim.killCount;
}

void ReportRules::takeHit(int32_t attackerId, int32_t targetId, float damage) {
    const int32_t target = objects.find(targetId);
    if (target < 0)
        return;
    PilotReport& victim = pilots[target];
    (victim.planeId != targetId ? victim.injury : victim.damage) += damage;
    const int32_t attacker = objects.find(attackerId);
    if (attacker < 0)
        return;
    pilots[attacker].hitTargets.push_back(target);
    victim.hitBy.push_back(attacker);
}

bool ReportRules::judge() {
    bool missionDone = false;
    for (int32_t index = 0; index < int32_t(pilots.size()); ++index) {
        PilotReport& pilot = pilots[index];
        creditLastHitter(index);
        judgeWounds(pilot);
        if (pilot.human != 0 && pilot.finished != 0) {
            zel::console("HUMAN PLAYER FINISHED MISSION");
            missionDone = true;
        }
        if (pilot.human != 0 && pilot.dead != 0) {
            zel::console("HUMAN PLAYER DIED");
            missionDone = true;
        }
    }
    return missionDone;
}

/// Where the log names no enemy, the last to hit the plane brought it down.
void ReportRules::creditLastHitter(int32_t index) {
    PilotReport& pilot = pilots[index];
    if (pilot.shotDown == 0 || pilot.shotdownBy >= 0 || pilot.hitBy.empty())
        return;
    const int32_t last = pilot.hitBy.back();
    PilotReport& hitter = pilots[last];
    if (hitter.country != pilot.country) {
        pilot.shotdownBy = last;
        hitter.kills.push_back(index);
    } else if (pilot.shotdownByOwn < 0) {
        pilot.shotdownByOwn = last;
    }
}
