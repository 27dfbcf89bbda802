#pragma once

#include <cstdint>
#include <vector>

#include "app/career/CareerEvents.h"
#include "app/career/PilotReport.h"
#include "engine/core/String.h"

// Injuries in percent: anything above is moderate or severe.
constexpr int32_t ModerateInjury = 25;
constexpr int32_t SevereInjury = 50;
// Parts of a machine: from there on, it counts as damaged or as destroyed.
constexpr float NotedDamage = 0.01F;
constexpr float DestroyingDamage = 0.5F;

/// What the combat report says about one record, in the language in use.
struct Outcome {
    zel::String fate;   // of pilot and plane
    zel::String cause;  // of its loss; empty unless the plane was lost
    zel::String reason; // why it says so: whom the log names, who hit last, what the log lacks
};

/// The outcomes of a flight's records. Result and reason come from one judgement, so that they
/// agree; the reason says nothing that the log doesn't.
class Outcomes {
public:
    /// events: of the flight, from accountOf (FlightAccount.h) or the record of the war. If some
    /// are missing, the reasons say less. REQUIRES: both outlive the outcomes, and their indices
    /// are valid.
    Outcomes(const std::vector<PilotReport>& reports, const std::vector<FlightEvent>& events);

    /// What became of a record. place: its index in the reports, here and below.
    Outcome of(size_t place) const;
    /// Whether nobody else has hit that one, according to a log that has all hits.
    bool isUntouched(size_t place) const;

private:
    friend class Judgement;
    const std::vector<PilotReport>& reports;
    const std::vector<FlightEvent>& events;
    std::vector<std::vector<const FlightEvent*>> suffered; // by record, in their order
    std::vector<bool> isSeen;                              // whether any event has the record
    std::vector<float> landing;                            // the last one; negative for none
};
