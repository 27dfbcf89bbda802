#pragma once

#include <string_view>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"

// Squadrons, pilots and plans made by hand, where a test wants to know every figure of them.

/// A pilot's figures.
struct Figures {
    int32_t skill = 0;
    int32_t shotdowns = 0;
    int32_t missions = 0;
};

/// A squadron without pilots and without a file. Returns its index.
inline int32_t emptySquadron(Database& career, int32_t nation) {
    career.squadrons.push_back(blank<Squadron>());
    career.squadrons.back().nation = static_cast<uint16_t>(nation);
    return static_cast<int32_t>(career.squadrons.size()) - 1;
}

/// A living pilot of the squadron's nation in its next slot. Returns his index.
inline int32_t addPilot(Database& career, int32_t squadron, std::string_view name,
                        const Figures& figures) {
    Squadron& home = career.squadrons[static_cast<size_t>(squadron)];
    Pilot pilot = blank<Pilot>();
    zel::copyText(pilot.name, name);
    pilot.squadron = squadron;
    pilot.alive = 1;
    pilot.nation = home.nation;
    pilot.skill = static_cast<uint8_t>(figures.skill);
    pilot.shotdowns = static_cast<uint16_t>(figures.shotdowns);
    pilot.missions = static_cast<uint16_t>(figures.missions);
    career.pilots.push_back(pilot);
    return home.slots[home.pilotCount++] = static_cast<int32_t>(career.pilots.size()) - 1;
}

/// A squadron whose pilots have those victories. Returns its index.
inline int32_t squadronOf(Database& career, int32_t nation, const std::vector<int32_t>& shotdowns) {
    const int32_t squadron = emptySquadron(career, nation);
    for (const int32_t count : shotdowns)
        addPilot(career, squadron, "Pilot " + std::to_string(career.pilots.size()), {5, count, 9});
    return squadron;
}

/// A squadron file of that key and lines for the squadron of the same index. REQUIRES: every
/// squadron before that one has a file.
inline void addFile(Database& career, std::string_view key, const std::vector<const char*>& lines) {
    SquadronFile file = blank<SquadronFile>();
    zel::copyText(file.key, key);
    zel::copyText(file.fileName, key);
    size_t place = 0;
    for (const char* line : lines) {
        file.lines[place++] = static_cast<int32_t>(career.dataLines.size());
        career.dataLines.push_back(blank<DataLine>());
        zel::copyText(career.dataLines.back().text, line);
    }
    Squadron& squadron = career.squadrons[career.squadronFiles.size()];
    squadron.squadronFile = static_cast<int16_t>(career.squadronFiles.size());
    zel::copyText(squadron.key, key);
    career.squadronFiles.push_back(file);
}

inline void setDate(Database& career, int32_t year, int32_t month, int32_t day) {
    career.year = year;
    career.month = month;
    career.day = day;
}

/// A plane of a plan, without a pilot of the career.
inline PlannedPlane plannedPlane(int32_t pilot, std::string_view name, int32_t nation,
                                 const Figures& figures = {}) {
    PlannedPlane plane;
    plane.pilot = pilot;
    plane.name = zel::String(name);
    plane.nation = nation;
    plane.skill = figures.skill;
    plane.shotdowns = figures.shotdowns;
    plane.missions = figures.missions;
    plane.type = isAllied(nation) ? "spad7" : "albatrosd3";
    return plane;
}
