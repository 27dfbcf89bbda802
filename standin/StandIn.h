#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/core/String.h"
#include "tools/common/Finding.h"

/// A stand-in for the simulator: it reads a mission file from a folder laid out like the
/// simulator's, flies it, and writes the log that the simulator would write.
namespace standin {

/// Waits that many seconds; false if it was interrupted.
using Wait = std::function<bool(double seconds)>;

/// How a flight goes and how its log is written. By default it goes to its end, and the log is
/// written at once.
struct FlightOptions {
    uint32_t seed = 0;     // of all draws; 0 for a fresh one
    bool breakOff = false; // the player leaves early: the log stops without an end
    bool killPlayer = false;
    bool woundPlayer = false;       // and he lives; killPlayer overrides it
    bool truncateLastPiece = false; // in the middle of a line
    double delay = 0;               // seconds before the flight begins
    double piecePause = 0;          // seconds before each piece of the log; 0 writes all at once
    std::string stamp;              // YYYY-MM-DD_HH-MM-SS of the log's name; empty: the wall clock
    Wait wait;                      // for the two above; empty: sleeps
};

/// What became of a plane and its pilot.
struct PlaneResult {
    std::string name;      // as in the mission
    int32_t country = 0;   // by the simulator's code
    int32_t victories = 0; // in this flight
    bool isPlayer = false;
    bool lost = false; // the plane
    bool dead = false; // the pilot
};

/// A flight in short, for the program to print.
struct FlightSummary {
    uint32_t seed = 0;               // that was used
    std::string mission;             // the file's own name
    std::string logName;             // of the first piece, without folder
    int32_t pieces = 0;              // written
    int32_t seconds = 0;             // of flight, until the player's end
    bool finished = false;           // the log has its end
    bool interrupted = false;        // during a wait: not all pieces are written
    std::vector<PlaneResult> planes; // in the mission's order, at the end of the whole flight
};

/// The folders of the simulator below `dir`, which may end in a separator; below the current folder
/// if it is empty.
zel::String dataFolder(const zel::String& dir);
zel::String missionsFolder(const zel::String& dir);
zel::String startupFile(const zel::String& dir);

/// Makes `dir` a simulator folder: data/startup.cfg with the text log switched on, data/Missions.
/// Leaves existing files unchanged. On error: false with the finding.
[[nodiscard]] bool makeSimulatorFolder(const zel::String& dir, tools::Finding& finding);
/// Writes data/startup.cfg with the text log switched on, in place of any other. On error: false
/// with the finding, and the file as it was.
[[nodiscard]] bool writeStartup(const zel::String& dir, tools::Finding& finding);

/// The name, without folder, of the mission file that was changed last; empty if there is none.
zel::String newestMission(const zel::String& dir);

/// Flies a mission, named as in data/Missions or from `dir`, and writes the log into data. The same
/// mission, options and stamp give the same log, byte for byte.
///
/// An existing log is never overwritten: the stamp advances by seconds to a free one. On error:
/// false with the finding, which names the faulty line of a refused mission, and nothing is
/// written. summary may be null.
[[nodiscard]] bool flyMission(const zel::String& dir, const zel::String& missionFile,
                              const FlightOptions& options, tools::Finding& finding,
                              FlightSummary* summary);

/// A readable line about the flight and, if it was finished, one for each plane.
std::string describe(const FlightSummary& summary);

} // namespace standin
