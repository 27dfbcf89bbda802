#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/EntireFile.h"
#include "app/report/PilotReport.h"
#include "engine/core/String.h"

/// One key:value of a log line: views into the line's text.
struct LogField {
    std::string_view key; // as written; compared without regard to case
    std::string_view value;
};

/// One line of the simulator's log: a run of the report's fields.
struct LogEvent {
    uint32_t firstField;
    uint32_t fieldCount;
};

/// The program's memory of one flown mission: read from the simulator's log, mapped to the
/// career's pilots through the plan that the mission generator still holds, judged, and carried
/// into the career. One at a time is reachable through instance().
class CombatReport {
public:
    CombatReport();
    virtual ~CombatReport();
    CombatReport(const CombatReport&) = delete;
    CombatReport& operator=(const CombatReport&) = delete;

    static CombatReport* instance();

    void clear();

    // LogReader.cpp

    /// Reads a mission's log: the piece "[0]" of that name in the folder (which ends in a
    /// separator) and the pieces that continue it. True when it tells of a finished mission with at
    /// least one pilot of the plan; false otherwise, and then nothing may be made of the records.
    [[nodiscard]] bool readMission(const zel::String& folder, const zel::String& name);
    /// Appends one event. REQUIRES: the line outlives the events.
    void parseLine(const zel::String& line);
    /// Makes records out of `lines`, judges and maps them. The result is readMission's.
    [[nodiscard]] bool analyse();

    /// Index of the record of that plane or body; -1 for none, and for a negative id.
    int32_t findByObject(int32_t id) const;
    /// Whether the first record with that id has it as its pilot's body.
    bool isBody(int32_t id) const;
    /// The value of a key in small letters; empty if the line doesn't have it.
    std::string_view eventValue(const LogEvent& event, std::string_view key) const;

    // CombatReport.cpp

    /// Carries the records into the career. True if any was mapped to a pilot.
    bool applyToCareer();
    /// Who is credited, who is dead, how badly wounded. True when the player's mission has ended.
    bool judge();
    /// Finds the plan's pilots among the records. The number of matches.
    int32_t mapPilots();

    EntireFile lines;
    std::vector<LogEvent> events;
    std::vector<PilotReport> pilots;

private:
    void readEvent(const LogEvent& event);
    void readObject(const LogEvent& event);
    void readDestruction(int32_t attackerId, int32_t targetId);
    void readHit(int32_t attackerId, int32_t targetId, float damage);
    void judgePilot(PilotReport& pilot, int32_t index);
    void describe() const;
    int32_t eventNumber(const LogEvent& event, std::string_view key) const;

    std::vector<LogField> fields;
};
