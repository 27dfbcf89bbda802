#pragma once

#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

// Every fighter type that the program knows, one row each. Adding a type takes a row here; to be
// flown in the career it also takes its shares in the months of app/career/Aircraft.cpp. Switches,
// settings pages, the checks of data files and the stand-in simulator are built from these rows,
// and tests/tree/check-docs.py compares docs/data-files.md with them.

/// The two sides of the war.
enum class WarSide : uint8_t { Allied, Central };

/// Nations that fly a type, as a set. England flies whatever its side has.
enum FlownBy : uint8_t { French = 1, British = 2, American = 4, German = 8 };

/// Kinds of machines, each with a silhouette of its own.
enum class Shape : uint8_t { Scout, TwoSeater, Triplane, Monoplane, Balloon, Ground };

/// How a type fights in the stand-in simulator, and what the simulator's log calls it. The figures
/// are rounded: speed and climb from test reports of the types, circles in the order in which
/// contemporary pilots ranked them. They differ less than the real ones did, because the stand-in's
/// pilots can't learn to avoid a plane's weakness.
struct StandInFigures {
    const char* logType; // the log's TYPE
    int32_t speed;       // level, km/h
    double climb;        // best, m/s
    double turn;         // a full circle at fighting speed, s
    int32_t guns;
    int32_t rounds; // for all guns
};

/// A fighter type: its names, its shape, who flies it and since which month, and the figures that
/// the stand-in flies it with.
struct Aircraft {
    const char* identifier;  // the simulator's name in lower case, and the key of the preferences
    const char* displayName; // on every page
    WarSide side;
    Shape shape;         // of its silhouette on the pages of the book
    uint8_t nations;     // FlownBy
    int32_t firstMonth;  // in which the career uses it, yyyymm
    const char* payload; // the simulator's PayloadId for guns and nothing else
    StandInFigures standIn;

    constexpr bool isAllied() const { return side == WarSide::Allied; }
};

// The Allied types first, and those of a side in the order in which a player who does not own one
// falls back to the one before. The order is part of the career: do not sort.
// clang-format off
inline constexpr Aircraft AircraftRows[] = {
    // identifier, display name, side                                     shape             nations                      from    payload  log type, km/h, m/s, s/turn, guns, rounds
    {"dh2",            "Airco DH2",           WarSide::Allied,  Shape::Scout,     British,                     191512, "0", {"Airco D.H.2",      140, 2.9, 13.5, 1,  470}},
    {"nieuport11",     "Nieuport 11",         WarSide::Allied,  Shape::Scout,     French | British,            191512, "0", {"Nieuport 11.C1",   156, 3.3, 13.2, 1,  291}},
    {"nieuport17",     "Nieuport 17",         WarSide::Allied,  Shape::Scout,     French | British,            191603, "0", {"Nieuport 17.C1",   165, 4.4, 13.4, 1,  500}},
    {"spad7early",     "SPAD VII Early",      WarSide::Allied,  Shape::Scout,     French | British,            191608, "0", {"SPAD 7.C1 150hp",  187, 4.0, 15.2, 1,  500}},
    {"soppup",         "Sopwith Pup",         WarSide::Allied,  Shape::Scout,     British,                     191610, "0", {"Sopwith Pup",      171, 3.8, 13.2, 1,  500}},
    {"soptriplane",    "Sopwith Triplane",    WarSide::Allied,  Shape::Triplane,  British,                     191612, "0", {"Sopwith Triplane", 181, 5.3, 13.4, 1,  500}},
    {"se5a",           "SE5a",                WarSide::Allied,  Shape::Scout,     British,                     191703, "2", {"S.E.5a",           205, 5.3, 14.5, 2,  788}},
    {"spad7",          "SPAD VII Late",       WarSide::Allied,  Shape::Scout,     French | British,            191704, "0", {"SPAD 7.C1 180hp",  198, 4.8, 15.0, 1,  500}},
    {"sopcamel",       "Sopwith Camel",       WarSide::Allied,  Shape::Scout,     British | American,          191706, "2", {"Sopwith Camel",    185, 5.1, 13.0, 2, 1000}},
    {"spad13",         "SPAD XIII",           WarSide::Allied,  Shape::Scout,     French | British | American, 191706, "2", {"SPAD 13.C1",       211, 5.3, 15.0, 2,  800}},
    {"nieuport28",     "Nieuport 28",         WarSide::Allied,  Shape::Scout,     British | American,          191708, "0", {"Nieuport 28.C1",   195, 4.9, 13.8, 2,  750}},
    {"sopdolphin",     "Sopwith Dolphin",     WarSide::Allied,  Shape::Scout,     British,                     191802, "2", {"Sopwith Dolphin",  200, 5.0, 14.0, 2, 1000}},
    {"fokkere3",       "Fokker E. III",       WarSide::Central, Shape::Monoplane, German,                      191512, "0", {"Fokker E.III",     138, 2.1, 15.4, 1,  500}},
    {"halberstadtd2",  "Halberstadt D. II",   WarSide::Central, Shape::Scout,     German,                      191605, "0", {"Halberstadt D.II", 150, 3.6, 14.0, 1,  500}},
    {"albatrosd2",     "Albatros D. II",      WarSide::Central, Shape::Scout,     German,                      191610, "0", {"Albatros D.II",    170, 4.0, 14.4, 2, 1000}},
    {"albatrosd2late", "Albatros D. II Late", WarSide::Central, Shape::Scout,     German,                      191701, "0", {"Albatros D.II lt", 173, 4.2, 14.4, 2, 1000}},
    {"albatrosd3",     "Albatros D. III",     WarSide::Central, Shape::Scout,     German,                      191703, "0", {"Albatros D.III",   172, 4.6, 14.2, 2, 1000}},
    {"albatrosd5",     "Albatros D. Va",      WarSide::Central, Shape::Scout,     German,                      191707, "0", {"Albatros D.Va",    180, 4.6, 14.2, 2, 1000}},
    {"pfalzd3a",       "Pfalz D. IIIa",       WarSide::Central, Shape::Scout,     German,                      191708, "0", {"Pfalz D.IIIa",     177, 4.2, 14.6, 2, 1000}},
    {"fokkerdr1",      "Fokker Dr. I",        WarSide::Central, Shape::Triplane,  German,                      191709, "0", {"Fokker Dr.I",      172, 5.7, 12.6, 2, 1000}},
    {"fokkerd7",       "Fokker D. VII",       WarSide::Central, Shape::Scout,     German,                      191805, "0", {"Fokker D.VII",     184, 4.8, 13.7, 2, 1000}},
    {"pfalzd12",       "Pfalz D. XII",        WarSide::Central, Shape::Scout,     German,                      191807, "0", {"Pfalz D.XII",      182, 4.5, 14.4, 2, 1000}},
    {"fokkerd7f",      "Fokker D. VIIf",      WarSide::Central, Shape::Scout,     German,                      191807, "0", {"Fokker D.VIIF",    195, 6.2, 13.5, 2, 1000}},
    {"fokkerd8",       "Fokker D. VIII",      WarSide::Central, Shape::Monoplane, German,                      191809, "0", {"Fokker D.VIII",    190, 5.6, 13.2, 2, 1000}},
};
// clang-format on

/// The rows in use: those above, unless a test has put others in their place.
class AircraftTable {
public:
    static const std::vector<Aircraft>& rows() { return held(); }
    /// For tests. Callers that cache lists, such as initPlaneNames(), must rebuild them.
    static void replace(std::vector<Aircraft> rows) { held() = std::move(rows); }

private:
    static std::vector<Aircraft>& held() {
        static std::vector<Aircraft> rows(std::begin(AircraftRows), std::end(AircraftRows));
        return rows;
    }
};
