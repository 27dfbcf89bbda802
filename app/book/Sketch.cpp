#include "app/book/Sketch.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

#include "app/book/SketchWording.h"
#include "app/career/Nation.h"
#include "app/record/Sqlite.h"
#include "app/report/ReportWording.h"

namespace {

constexpr float LongestBreak = 20;     // seconds between hits of one burst
constexpr float LongestFall = 5;       // seconds; the log calls it a landing when a wreck stops
constexpr float EdgeOfTheWorld = 1e6F; // metres; coordinates beyond it are invalid
constexpr size_t LongestCrowd = 9;     // numbers that a square has room for

bool isFight(FlightEventKind kind) {
    return kind == FlightEventKind::Hit || kind == FlightEventKind::Damage ||
           kind == FlightEventKind::Wound;
}

bool hasPlace(const FlightEvent& event) {
    return event.hasPosition && std::fabs(event.x) < EdgeOfTheWorld &&
           std::fabs(event.z) < EdgeOfTheWorld;
}

/// Hits of one record on another without a long break.
struct Burst {
    int32_t actor;
    int32_t target;
    float begin;
    float last;
    int32_t shots = 0;
    size_t mark = 0; // its first one; only if it has any
    bool hasMark = false;
};

/// A line whose mark isn't numbered yet.
struct Draft {
    float seconds;
    size_t mark;
    bool hasMark;
    zel::String text;
};

class Sketcher {
public:
    Sketcher(const RecordedFlight& flight, Sketch& sketch)
        : flight(flight), reports(flight.mission.reports), sketch(sketch), lostAt(reports.size()) {
        for (size_t i = 0; i < reports.size() && own < 0; ++i)
            if (reports[i].human != 0)
                own = static_cast<int32_t>(i);
    }

    void draw() {
        for (const FlightEvent& event : flight.mission.events)
            take(event);
        for (const Burst& burst : bursts)
            addBurst(burst);
        if (own >= 0 && !hasLanded && report(own).shotDown == 0 && report(own).dead == 0)
            drafts.push_back({-1, 0, false, textOf(wording::EndsInTheAir)});
        const auto rank = [](const Draft& draft) {
            return draft.seconds < 0 ? std::numeric_limits<float>::max() : draft.seconds;
        };
        std::stable_sort(drafts.begin(), drafts.end(),
                         [&](const Draft& a, const Draft& b) { return rank(a) < rank(b); });
    }

    /// Call it once the frame is known.
    void number() {
        std::vector<int32_t> crowd(size_t{SketchFrame::Columns} * SketchFrame::Rows, 0);
        std::vector<int32_t> shared(crowd.size(), 0);
        for (const Draft& draft : drafts)
            if (draft.hasMark)
                ++crowd[squareOf(draft)];
        int32_t next = 1;
        for (const Draft& draft : drafts) {
            SketchLine& line = sketch.lines.emplace_back();
            line.text = draft.text;
            line.seconds = static_cast<int32_t>(draft.seconds);
            if (!draft.hasMark)
                continue;
            const SketchMark::Kind kind = sketch.marks[draft.mark].kind;
            line.isLoss = kind == SketchMark::Loss || kind == SketchMark::OwnLoss;
            const size_t square = squareOf(draft);
            const bool isShared = crowd[square] > static_cast<int32_t>(LongestCrowd);
            if (isShared && shared[square] != 0) {
                line.number = shared[square];
                continue;
            }
            line.number = sketch.marks[draft.mark].number = next++;
            shared[square] = line.number;
        }
    }

private:
    bool isLost(int32_t record) const { return lostAt[record].has_value(); }
    /// Whether a landing is only the end of a fall.
    bool isWreck(const FlightEvent& landing) const {
        const std::optional<float>& lost = lostAt[landing.actor];
        return lost && (report(landing.actor).dead != 0 || landing.seconds - *lost < LongestFall);
    }
    bool isYou(int32_t record) const { return record >= 0 && record == own; }
    const PilotReport& report(int32_t record) const { return reports[record]; }
    zel::String name(int32_t record) const {
        if (record < 0)
            return {};
        const PilotReport& one = report(record);
        return one.plannedName.empty() ? reportedName(one) : one.plannedName;
    }
    zel::String said(const wording::SketchForms& forms, int32_t actor, int32_t target,
                     const zel::String& third = {}) const {
        const int32_t form = isYou(actor) ? 1 : isYou(target) ? 2 : 0;
        return textOf(forms[form], {name(actor), name(target), third});
    }
    zel::String said(const Wording (&forms)[2], int32_t actor,
                     const zel::String& second = {}) const {
        return textOf(forms[isYou(actor) ? 1 : 0], {name(actor), second});
    }
    size_t squareOf(const Draft& draft) const {
        const MapPoint& place = sketch.marks[draft.mark].place;
        const float side = static_cast<float>(sketch.frame.kilometres) * 1000;
        const auto column = static_cast<int32_t>((place.z - sketch.frame.southWest.z) / side);
        const auto row = static_cast<int32_t>((place.x - sketch.frame.southWest.x) / side);
        return static_cast<size_t>(std::clamp(row, 0, SketchFrame::Rows - 1) *
                                       SketchFrame::Columns +
                                   std::clamp(column, 0, SketchFrame::Columns - 1));
    }

    void take(const FlightEvent& event) {
        const bool isOfOwnPlane =
            isFight(event.kind) || isEnd(event.kind) ? isYou(event.target) : isYou(event.actor);
        if (isOfOwnPlane && hasPlace(event)) {
            if (sketch.way.empty() && event.kind != FlightEventKind::TakeOff)
                addBegin(event, wording::InTheAirNear, wording::InTheAir);
            sketch.way.push_back({event.x, event.z});
        }
        if (isFight(event.kind) && event.target >= 0)
            takeHit(event);
        else if (isEnd(event.kind) && event.target >= 0)
            takeEnd(event);
        else if (event.kind == FlightEventKind::Landing && event.actor >= 0)
            takeLanding(event);
        else if (event.kind == FlightEventKind::TakeOff && isYou(event.actor) && hasPlace(event))
            addBegin(event, wording::TakeOffNear, wording::TakeOff);
    }

    size_t addMark(SketchMark::Kind kind, const FlightEvent& event, int32_t whose) {
        SketchMark& mark = sketch.marks.emplace_back();
        mark.kind = kind;
        mark.place = {event.x, event.z};
        mark.isAllied = isAllied(report(whose).country);
        return sketch.marks.size() - 1;
    }

    void addBegin(const FlightEvent& event, const Wording& near, const Wording& plain) {
        const char* town = townNear({event.x, event.z}, flight.onChannelMap, NearTown);
        drafts.push_back({event.seconds, addMark(SketchMark::Begin, event, own), true,
                          town != nullptr ? textOf(near, {nameInLanguage(town)}) : textOf(plain)});
    }

    void takeHit(const FlightEvent& event) {
        if (isLost(event.target))
            return; // a wreck
        auto burst = std::find_if(bursts.rbegin(), bursts.rend(), [&](const Burst& known) {
            return known.actor == event.actor && known.target == event.target;
        });
        if (burst == bursts.rend() || event.seconds - burst->last > LongestBreak) {
            bursts.push_back({event.actor, event.target, event.seconds, event.seconds});
            burst = bursts.rbegin();
        }
        burst->last = event.seconds;
        if (event.kind == FlightEventKind::Hit)
            burst->shots += std::max(1, static_cast<int32_t>(event.amount));
        if (!hasPlace(event))
            return;
        const size_t mark = addMark(SketchMark::Hit, event, event.target);
        if (!burst->hasMark)
            burst->mark = mark;
        burst->hasMark = true;
    }

    /// Leaves out hits without a place.
    void addBurst(const Burst& burst) {
        if (!burst.hasMark)
            return;
        zel::String text;
        if (burst.actor < 0 || burst.actor == burst.target)
            text = said(wording::IsDamaged, burst.target);
        else if (burst.shots == 0)
            text = said(wording::SketchDamages, burst.actor, burst.target);
        else
            text = said(wording::SketchHits, burst.actor, burst.target,
                        textOf(wording::Times[std::clamp(burst.shots, 1, 3) - 1], {burst.shots}));
        drafts.push_back({burst.begin, burst.mark, true, text});
    }

    void takeEnd(const FlightEvent& event) {
        const auto place = static_cast<size_t>(event.target);
        if (!hasPlace(event) || isLost(event.target))
            return;
        lostAt[place] = event.seconds;
        const PilotReport& lost = reports[place];
        zel::String text;
        if (lost.shotdownBy >= 0)
            text = said(wording::BringsDown, lost.shotdownBy, event.target);
        else if (lost.shotdownByOwn >= 0 && lost.shotdownByOwn != event.target)
            text = said(wording::FallsToOwn, lost.shotdownByOwn, event.target);
        else
            text = said(wording::Crashes, event.target);
        const SketchMark::Kind kind = isYou(event.target) ? SketchMark::OwnLoss : SketchMark::Loss;
        drafts.push_back({event.seconds, addMark(kind, event, event.target), true, text});
    }

    void takeLanding(const FlightEvent& event) {
        hasLanded = hasLanded || isYou(event.actor);
        if (!hasPlace(event) || isWreck(event))
            return;
        const char* town = townNear({event.x, event.z}, flight.onChannelMap, NearTown);
        drafts.push_back({event.seconds, addMark(SketchMark::Landing, event, event.actor), true,
                          town != nullptr
                              ? said(wording::LandsNear, event.actor, nameInLanguage(town))
                              : said(wording::Lands, event.actor)});
    }

    const RecordedFlight& flight;
    const std::vector<PilotReport>& reports;
    Sketch& sketch;
    int32_t own = -1;
    std::vector<std::optional<float>> lostAt; // seconds, by record
    std::vector<Burst> bursts;
    std::vector<Draft> drafts;
    bool hasLanded = false; // the player
};

/// The smallest frame that holds all places with a square to spare, with them in its middle.
SketchFrame frameAround(const Sketch& sketch, const MapPoint& fight) {
    std::vector<MapPoint> places = sketch.way;
    for (const SketchMark& mark : sketch.marks)
        places.push_back(mark.place);
    if (sketch.hasBase)
        places.push_back(sketch.base);
    if (places.empty())
        places.push_back(fight);
    MapPoint least = places.front();
    MapPoint most = least;
    for (const MapPoint& place : places) {
        least = {std::min(least.x, place.x), std::min(least.z, place.z)};
        most = {std::max(most.x, place.x), std::max(most.z, place.z)};
    }
    SketchFrame frame;
    constexpr int32_t Steps[] = {1, 2, 5};
    for (int32_t step = 0;; ++step) {
        frame.kilometres = Steps[step % 3];
        for (int32_t i = 0; i < step / 3; ++i)
            frame.kilometres *= 10;
        const float spare = 2000.0F * static_cast<float>(frame.kilometres);
        if (most.x - least.x <= frame.height() - spare && most.z - least.z <= frame.width() - spare)
            break;
    }
    frame.southWest = {(least.x + most.x - frame.height()) / 2,
                       (least.z + most.z - frame.width()) / 2};
    return frame;
}

} // namespace

Sketch sketchOf(const RecordedFlight& flight, const MapPoint* base) {
    Sketch sketch;
    if (base != nullptr) {
        sketch.base = *base;
        sketch.hasBase = true;
    }
    sketch.baseName = nameInLanguage(flight.base);
    Sketcher sketcher(flight, sketch);
    sketcher.draw();
    sketch.frame = frameAround(sketch, {flight.mission.x, flight.mission.z});
    sketcher.number();
    sketch.front = frontOf(flight.date, flight.onChannelMap);
    for (const Town& town : townsOf(flight.onChannelMap))
        if (sketch.frame.holds(town.place) && !(sketch.hasBase && flight.base == town.name))
            sketch.towns.push_back(town);
    return sketch;
}

bool baseOf(SqliteFile& record, const RecordedFlight& flight, MapPoint& base) {
    SqliteStatement row(record, "SELECT x, z FROM base WHERE name = ?1 AND on_channel_map = ?2"
                                " AND date <= ?3 ORDER BY id DESC LIMIT 1");
    row.with(flight.base, flight.onChannelMap, flight.date);
    if (!row.next())
        return false;
    base = {static_cast<float>(row.real(0)), static_cast<float>(row.real(1))};
    return true;
}

zel::String timeText(int32_t seconds) {
    char text[24];
    std::snprintf(text, sizeof text, "%d:%02d", seconds / 60, seconds % 60);
    return {text};
}

std::vector<zel::String> sketchLines(const Sketch& sketch) {
    std::vector<zel::String> lines;
    for (const SketchLine& line : sketch.lines) {
        const zel::String time = line.seconds >= 0 ? timeText(line.seconds) : zel::String();
        if (line.number > 0)
            lines.push_back(textOf(wording::NumberedLine, {line.number, time, line.text}));
        else
            lines.push_back(time.empty() ? line.text
                                         : textOf(wording::UnnumberedLine, {time, line.text}));
    }
    return lines;
}
