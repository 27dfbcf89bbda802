#pragma once

#include <cstdint>
#include <vector>

#include "app/career/PilotReport.h"
#include "engine/core/String.h"

// What happens in a career, as a CareerObserver is notified of it. Pilots and squadrons are the
// career's indices, -1 for none. Nations are its codes, aircraft its identifiers.

/// One victory, as it is credited. The squadrons are those that the two belong to at that moment.
struct Victory {
    int32_t victor = -1;
    int32_t victim = -1;    // -1 for somebody whom only the simulator's log names
    zel::String victimName; // reportedName() of him; empty for a pilot of the career
    zel::String victorAircraft;
    zel::String victimAircraft;
    bool hasDied = false; // the victim was alive and dies by it
    bool isSeen = false;  // in the player's flight, whose onFlight() comes first
};

/// The values are in the record's file as their names.
enum class PostingKind : uint8_t { Joined, Transferred, Died, Succeeded };
/// Why. The names are in the record's file too.
enum class PostingCause : uint8_t {
    Start,       // he was there when the career began
    History,     // the data files say so
    Replacement, // of a man who is gone
    Invitation,  // which the player accepted
    Exchange,    // for the man who was transferred
    ShotDown,    // by an enemy
    OwnSide,     // brought down by his own side
    Crash,       // nobody brought him down
};

/// A pilot comes, moves, dies or takes the player's part.
struct Posting {
    PostingKind kind = PostingKind::Joined;
    PostingCause cause = PostingCause::Start;
    int32_t pilot = -1;
    int32_t from = -1; // Transferred: the squadron that he leaves
    /// Joined: whom he replaces, except at the start; Died: who killed him; Succeeded: whom he
    /// follows; Exchange: for whom.
    int32_t other = -1;
    zel::String otherName; // reportedName() of a killer whom only the simulator's log names
};

/// One plane of a mission's plan.
struct FlightPlane {
    int32_t pilot = -1;
    int32_t squadron = -1;
    zel::String name;
    zel::String aircraft;
    int32_t nation = 0;
    int32_t level = 0; // as in the mission: 1 to 4, 0 for the first plane
};

/// Kinds of the events below; the record's file has their names.
enum class FlightEventKind : uint8_t {
    Hit,      // bullets; it has no position
    Damage,   // of a plane
    Wound,    // of a pilot
    Kill,     // a plane destroyed by another one
    Crash,    // a plane destroyed, by nobody
    Death,    // of a pilot
    TakeOff,  // of any plane
    Landing,  // likewise
    Position, // of the player's plane
};

/// What the simulator's log reports at a moment of the flight.
struct FlightEvent {
    FlightEventKind kind = FlightEventKind::Hit;
    float seconds = 0;   // since the mission began
    int32_t actor = -1;  // index of the flight's reports
    int32_t target = -1; // likewise
    float amount = 0;    // Hit: how many; Damage and Wound: 1.0 is all
    bool hasPosition = false;
    float x = 0; // metres to the north, above the sea and to the east
    float y = 0;
    float z = 0;
};

/// A mission that the player flew and that was reported.
struct FlownMission {
    zel::String log;   // first piece of the log, with its path
    float seconds = 0; // the log's length
    float x = 0;       // where the fight is: metres to the north and to the east
    float z = 0;
    std::vector<FlightPlane> plan;    // the player's plane first
    std::vector<PilotReport> reports; // in the report's order
    std::vector<zel::String> fates;   // of each of them, in the report's words
    std::vector<zel::String> causes;  // likewise; empty for one who wasn't shot down
    std::vector<FlightEvent> events;  // in the log's order
};
