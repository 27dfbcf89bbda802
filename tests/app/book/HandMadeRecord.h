#pragma once

#include <utility>

#include "app/record/RecordSchema.h"
#include "app/record/RecordWriter.h"
#include "app/record/Sqlite.h"
#include "tests/support/HandMade.h"

/// A record in memory with flights made by hand, of a career whose German pilots 0 and 1 are the
/// player and his successor.
struct HandMadeRecord {
    HandMadeRecord() {
        setDate(career, 1917, 9, 30);
        const int32_t squadron = emptySquadron(career, Germany);
        addPilot(career, squadron, "Erich Sommer", {});
        addPilot(career, squadron, "Otto von der Heydt", {});
        file.openInMemory();
        migrateRecord(file);
    }

    /// Adds a flight with its plan of pilots, the player's first: their numbers in the career or
    /// beyond it. The reports come in the same order.
    FlownMission& addFlight(int32_t date, const std::vector<FlightPlane>& plan) {
        RecordEvents::DatedFlight& flown = events.flights.emplace_back();
        flown.date = date;
        flown.squadron = 0;
        flown.base = "Douai";
        flown.onChannelMap = false;
        flown.mission.plan = plan;
        for (const FlightPlane& plane : plan) {
            PilotReport& report = flown.mission.reports.emplace_back();
            report.name = plane.name;
            report.type = plane.aircraft;
            report.plannedType = plane.aircraft;
            report.country = plane.nation;
            report.pilot = plane.pilot;
            report.human = flown.mission.reports.size() == 1 ? 1 : 0;
        }
        return flown.mission;
    }
    /// Credits the victor with the plane of that place.
    static void credit(FlownMission& mission, int32_t victor, int32_t victim) {
        PilotReport& fallen = mission.reports[static_cast<size_t>(victim)];
        fallen.shotDown = 1;
        fallen.shotdownBy = victor;
        mission.reports[static_cast<size_t>(victor)].kills.push_back(victim);
    }
    static void addEvent(FlownMission& mission, FlightEventKind kind, float seconds, int32_t actor,
                         int32_t target) {
        FlightEvent event;
        event.kind = kind;
        event.seconds = seconds;
        event.actor = actor;
        event.target = target;
        mission.events.push_back(event);
    }
    /// The tables, with all flights that were added.
    SqliteFile& tables() {
        for (RecordEvents::DatedFlight& flown : events.flights) {
            flown.mission.fates.resize(flown.mission.reports.size());
            flown.mission.causes.resize(flown.mission.reports.size());
        }
        writer.write(file, career, events);
        return file;
    }

    Database career;
    SqliteFile file;
    RecordEvents events;
    RecordWriter writer;
};
