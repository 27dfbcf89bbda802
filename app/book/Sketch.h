#pragma once

#include <cstdint>
#include <vector>

#include "app/book/RecordedFlight.h"
#include "app/book/Theatre.h"

/// A place of the fight.
struct SketchMark {
    enum Kind {
        Begin,   // the log's positions of the player's plane
        Hit,     // somebody was hit or damaged
        Loss,    // a plane was lost
        OwnLoss, // the player's
        Landing,
    };
    Kind kind = Hit;
    MapPoint place;
    bool isAllied = false; // the one who was hit, lost or landed
    int32_t number = 0;    // of the list; 0 if another mark of its line has the number
};

/// A line of the list beside the sketch.
struct SketchLine {
    int32_t number = 0;  // of its mark; 0 without a place
    int32_t seconds = 0; // since the start; negative without a time
    zel::String text;    // who and what, in the language in use
    bool isLoss = false; // of a plane
};

/// The part of the map that a sketch shows: squares of `kilometres` each way, from its lower left
/// corner on.
struct SketchFrame {
    static constexpr int32_t Columns = 30;
    static constexpr int32_t Rows = 23;             // the last one is cut
    static constexpr float Shape = 476.0F / 624.0F; // height divided by width
    MapPoint southWest;
    int32_t kilometres = 1; // of a square: 1, 2 or 5, times a power of ten

    float width() const { return static_cast<float>(Columns * kilometres) * 1000; } // metres
    float height() const { return width() * Shape; }
    /// Whether the point is within the frame.
    bool holds(const MapPoint& point) const {
        return point.x >= southWest.x && point.x <= southWest.x + height() &&
               point.z >= southWest.z && point.z <= southWest.z + width();
    }
};

/// A flight's fight as logged: the events that have a position, and nothing else, on the map of the
/// country below. Once a plane is lost, the only event shown of it is the landing of a survivor.
/// Everything except front and towns is at least one square inside the frame.
struct Sketch {
    SketchFrame frame;
    std::vector<MapPoint>
        way; // the places that the log names of the player's plane, in their order
    std::vector<SketchMark> marks;
    std::vector<SketchLine> lines; // in the order of time
    MapPoint base;
    bool hasBase = false;
    zel::String baseName; // in the language in use
    std::vector<MapPoint> front;
    std::vector<Town> towns; // in the frame
};

/// REQUIRES: base (null if unknown) is that of the flight's day.
Sketch sketchOf(const RecordedFlight& flight, const MapPoint* base);

/// The base of a flight according to the record. False if there is no base of that name.
bool baseOf(SqliteFile& record, const RecordedFlight& flight, MapPoint& base);

/// The list as lines of text: "3. 9:14  You bring down August Hanko".
std::vector<zel::String> sketchLines(const Sketch& sketch);
/// "9:14", minutes and seconds.
zel::String timeText(int32_t seconds);
