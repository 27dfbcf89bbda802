#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/EntireFile.h"
#include "app/career/PilotReport.h"
#include "engine/core/String.h"

struct PlannedPlane;

/// The keys of a log line that tell something about a pilot.
enum class LogKey : uint8_t { AType, Id, Pid, Name, Type, Country, Tid, Aid, Dmg, BotId, Count };

/// One line of the simulator's log: where in its text the values of the known keys stand. A key
/// that stands there twice has its last value.
class LogEvent {
public:
    explicit LogEvent(std::string_view line) : text(line.data()) {}
    /// Without blanks around it; empty if the line doesn't have the key.
    std::string_view value(LogKey key) const {
        const Place& place = places[static_cast<size_t>(key)];
        return {text + place.start, place.length};
    }
    /// What zel::toInt gives, which is a loop over digits in nearly every case.
    int32_t number(LogKey key) const {
        const std::string_view digits = value(key);
        uint32_t number = 0;
        for (const char character : digits) {
            const auto digit = static_cast<uint32_t>(character - '0');
            if (digit > 9 || digits.size() > 9)
                return zel::toInt(digits);
            number = number * 10 + digit;
        }
        return static_cast<int32_t>(number);
    }
    /// REQUIRES: the value lies in the first MostBytes of the line.
    void set(LogKey key, std::string_view value) {
        places[static_cast<size_t>(key)] = {static_cast<uint16_t>(value.data() - text),
                                            static_cast<uint16_t>(value.size())};
    }

    /// What is longer is no line of the simulator's: it is read up to here.
    static constexpr size_t MostBytes = 65535;

private:
    struct Place {
        uint16_t start = 0;
        uint16_t length = 0;
    };
    const char* text;
    std::array<Place, static_cast<size_t>(LogKey::Count)> places;
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
    /// A piece that is there and can't be read, as while somebody holds it, is a log line and
    /// false: without it the records would tell half of the flight.
    [[nodiscard]] bool readMission(const zel::String& folder, const zel::String& name);
    /// Whether that was so at the last readMission: reading the log again may tell more, even if it
    /// hasn't grown.
    bool hasUnreadPiece() const { return unreadPiece; }
    /// Appends one event. REQUIRES: the line outlives the events.
    void parseLine(const zel::String& line);
    void parseLine(zel::String&&) = delete;
    /// Makes records out of `lines`, judges and maps them. The result is readMission's.
    [[nodiscard]] bool analyse();

    /// Index of the record of that plane or body; -1 for none, and for a negative id.
    int32_t findByObject(int32_t id) const;
    /// Whether the first record with that id has it as its pilot's body.
    bool isBody(int32_t id) const;

    // CombatReport.cpp

    /// Carries the records into the running program's career (applyReports). True if any was mapped
    /// to a pilot.
    bool applyToCareer();
    /// Who is credited, who is dead, how badly wounded. True when the player's mission has ended.
    bool judge();
    /// Finds the plan's pilots among the records; without an argument, those of the current mission
    /// generator's plan. The number of matches.
    int32_t mapPilots();
    int32_t mapPilots(const std::vector<PlannedPlane>& plan);

    EntireFile lines;
    std::vector<LogEvent> events;
    std::vector<PilotReport> pilots;

private:
    bool readPieces(const zel::String& folder, const zel::String& name);
    void readEvent(const LogEvent& event);
    void readObject(const LogEvent& event);
    void readDestruction(int32_t attackerId, int32_t targetId);
    void readHit(int32_t attackerId, int32_t targetId, float damage);
    void judgePilot(PilotReport& pilot, int32_t index);
    void describe() const;

    bool unreadPiece = false;
};
