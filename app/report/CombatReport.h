#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/PilotReport.h"
#include "app/report/LogEvent.h"
#include "app/report/LogText.h"
#include "app/report/ObjectIndex.h"
#include "engine/core/String.h"

struct PlannedPlane;

/// The report of one flown mission. It is read from the simulator's log and judged. Its records are
/// matched with the career's pilots through the plan of the mission, and the results are applied to
/// the career. Without a plan, the running program's generator provides it. instance() is the most
/// recent report.
class CombatReport {
public:
    CombatReport();
    virtual ~CombatReport();
    CombatReport(const CombatReport&) = delete;
    CombatReport& operator=(const CombatReport&) = delete;

    /// Null if there is none.
    static CombatReport* instance();

    /// Forgets lines, events and records.
    void clear();

    /// Reads a mission's log: the piece "[0]" of that name in the folder (which ends in a
    /// separator) and the pieces that continue it. True if the log shows a finished mission with at
    /// least one pilot of the plan; otherwise the records must not be used. False, with a log line,
    /// if an existing piece can't be read, for example because another program holds it: the
    /// records would cover only part of the flight.
    [[nodiscard]] bool readMission(const zel::String& folder, const zel::String& name,
                                   const std::vector<PlannedPlane>& plan);
    [[nodiscard]] bool readMission(const zel::String& folder, const zel::String& name);
    /// Whether the last readMission met such a piece: reading the log again may give more, even if
    /// it hasn't grown.
    bool hasUnreadPiece() const { return lines.hasUnreadPiece(); }
    /// Why it could not be read.
    zel::FileFault unreadFault() const { return lines.unreadFault(); }
    /// Appends one event. REQUIRES: the line outlives the events.
    void parseLine(std::string_view line);
    void parseLine(zel::String&&) = delete;
    /// Makes the events and records from `lines`, judges and maps them. Returns the same as
    /// readMission.
    [[nodiscard]] bool analyse(const std::vector<PlannedPlane>& plan);
    [[nodiscard]] bool analyse();

    /// Index of the first record with that plane or body; -1 for none, and for a negative id.
    int32_t findByObject(int32_t id) const;
    /// Whether the first record with that id has it as its pilot's body.
    bool isBody(int32_t id) const;

    /// Finds the plan's pilots among the records. Returns the number of matches.
    int32_t mapPilots(const std::vector<PlannedPlane>& plan);
    int32_t mapPilots();
    /// Applies the records to the running program's career (applyReports). True if any was mapped
    /// to a pilot.
    bool applyToCareer();

    LogText lines;
    std::vector<LogEvent> events;
    std::vector<PilotReport> pilots;

private:
    void describe() const;

    mutable ObjectIndex objects; // of the pilots; filled as far as it is asked for
};
