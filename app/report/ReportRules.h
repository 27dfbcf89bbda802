#pragma once

#include <cstdint>
#include <vector>

#include "app/career/PilotReport.h"
#include "app/report/LogEvent.h"
#include "app/report/ObjectIndex.h"

/// A pilot whose injury exceeds this is dead. 1.0 is the damage that kills.
constexpr float DeadlyInjury = 0.977F;

/// The rules by which the events of a log become the records of a flight, one for each plane, gun
/// or other object that the log names.
class ReportRules {
public:
    /// REQUIRES: both outlive the rules, and the index is of these records.
    ReportRules(std::vector<PilotReport>& pilots, ObjectIndex& objects)
        : pilots(pilots), objects(objects) {}

    /// Takes the next event, in the order of the log. Ignores events that don't matter to the
    /// report and objects that the log hasn't named.
    void take(const LogEvent& event);
    /// After the last event: decides who is credited with each plane that was lost, who is dead and
    /// how badly the others are wounded. True if the player has finished his mission or is dead.
    [[nodiscard]] bool judge();

private:
    PilotReport* recordOf(int32_t id);
    void takeObject(const LogEvent& event);
    void takeDestruction(int32_t attackerId, int32_t targetId);
    void takeHit(int32_t attackerId, int32_t targetId, float damage);
    void creditLastHitter(int32_t index);

    std::vector<PilotReport>& pilots;
    ObjectIndex& objects;
};
