#include "standin/log/MissionLog.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <numeric>

#include "engine/core/String.h"
#include "standin/log/LogPieces.h"
#include "standin/log/ObjectIds.h"
#include "standin/mission/AircraftTypes.h"

namespace standin {

namespace {

constexpr size_t LongestName = 31; // the part of a plane's Name that the log repeats
constexpr int32_t HumanTick = 5;   // when the human enters his plane
constexpr int32_t EarliestBreakOff = 500;

/// What the guns of a nation fire.
struct Ammunition {
    const char* ball;
    const char* armourPiercing;
};
// French and American planes had Vickers and Lewis guns too.
constexpr Ammunition AlliedAmmunition = {"BULLET_GBR_77x56R_MK7", "BULLET_GBR_77x56R_WMK1_AP"};
constexpr Ammunition GermanAmmunition = {"BULLET_GER_792x57_SS", "BULLET_GER_792x57_SMK_AP"};
constexpr int32_t FirstGermanCountry = 500;

/// Players' profiles, with every kind of character that a name may contain.
constexpr const char* Profiles[] = {"Desk Pilot", "Desk Pilot: Two", "Esc_Red Leader (B)",
                                    "O'Hara"};

bool isGerman(int32_t country) { return country >= FirstGermanCountry; }

std::string number(int64_t value) { return std::to_string(value); }

/// Three decimals; `comma` separates the numbers.
std::string place(const Vector& position, const char* comma) {
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "(%.3f%s%.3f%s%.3f)", position.x, comma, position.y, comma,
                  position.z);
    return buffer;
}

std::string thousandths(int32_t value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%d.%03d", value / 1000, value % 1000);
    return buffer;
}

class Writer {
public:
    Writer(const Mission& mission, const FlightCourse& flight, const LogOptions& options,
           zel::Random& random);
    std::vector<std::string> write();

private:
    void put(int32_t tick, const std::string& text);
    void nameObject(int32_t tick, int32_t object);
    void nameGun(int32_t tick, int32_t gun);
    void writeStart();
    void writeFlights();
    void writeHuman();
    void writeEvents();
    void writeEvent(const Event& event);
    void writeObjective(const Objective& objective);
    void writeEnd();
    void writeSortieEnd(int32_t plane, int32_t tick);
    int32_t breakOffTick();

    bool concernsHuman(int32_t object) const { return object == human || object == human + planes; }
    std::string id(int32_t object) const {
        return object == Nobody ? "-1" : number(ids.of(object));
    }
    int32_t countryOf(int32_t object) const {
        return object < 2 * planes ? mission.planes[object % planes].country
                                   : flight.guns[object - 2 * planes].country;
    }
    std::string guid();

    const Mission& mission;
    const FlightCourse& flight;
    const LogOptions& options;
    zel::Random& random;
    const int32_t planes;
    const int32_t human;
    ObjectIds ids;
    std::vector<bool> named; // by object
    std::vector<TickLine> lines;
};

Writer::Writer(const Mission& mission, const FlightCourse& flight, const LogOptions& options,
               zel::Random& random)
    : mission(mission), flight(flight), options(options), random(random),
      planes(int32_t(mission.planes.size())), human(mission.human),
      ids(planes, int32_t(flight.guns.size()), random),
      named(2 * mission.planes.size() + flight.guns.size()) {}

std::vector<std::string> Writer::write() {
    writeStart();
    writeFlights();
    writeHuman();
    writeEvents();
    writeEnd();
    int32_t lastTick = flight.endTick + 2; // of the line that ends the mission
    if (options.breakOff) {
        lastTick = breakOffTick();
        while (lines.back().tick > lastTick)
            lines.pop_back();
    }
    std::vector<std::string> pieces = cutIntoPieces(lines, lastTick, random);
    if (options.truncate)
        truncatePiece(pieces.back(), random);
    return pieces;
}

void Writer::put(int32_t tick, const std::string& text) {
    lines.push_back({tick, "T:" + number(tick) + " AType:" + text + "\r\n"});
}

/// The line of type 12, once; a body's plane comes first.
void Writer::nameObject(int32_t tick, int32_t object) {
    if (object == Nobody || named[object])
        return;
    named[object] = true;
    if (object >= 2 * planes) {
        nameGun(tick, object - 2 * planes);
        return;
    }
    const bool isBody = object >= planes;
    const Plane& plane = mission.planes[object % planes];
    if (isBody)
        nameObject(tick, object - planes);
    const std::string type = isBody ? "Common Bot" : aircraftType(plane.aircraft).logType;
    const std::string name = isBody ? "" : plane.name.substr(0, LongestName);
    put(tick, "12 ID:" + id(object) + " TYPE:" + type + " COUNTRY:" + number(plane.country) +
                  " NAME:" + name + " PID:" + (isBody ? id(object - planes) : "-1"));
}

void Writer::nameGun(int32_t tick, int32_t gun) {
    const int32_t country = flight.guns[gun].country;
    const std::string type = isGerman(country) ? "LMG08AAA" : "HotchkissAAA";
    put(tick, "12 ID:" + id(2 * planes + gun) + " TYPE:" + type + " COUNTRY:" + number(country) +
                  " NAME:" + std::string(zel::String(type).toLower().view()) + " PID:-1");
}

void Writer::writeStart() {
    std::string countries;
    for (const Country& country : mission.countries)
        countries +=
            (countries.empty() ? "" : ",") + number(country.code) + ":" + number(country.coalition);
    put(0, "0 GDate:" + number(mission.year) + "." + number(mission.month) + "." +
               number(mission.day) + " GTime:" + number(mission.hour) + ":" +
               number(mission.minute) + ":" + number(mission.second) + " MFile:Missions/" +
               options.missionName + ".mission MID: GType:" + number(mission.missionType) +
               " CNTRS:" + countries + " SETTS:01010100100000010000000110 MODS:0 PRESET:0");
}

void Writer::writeFlights() {
    for (int32_t leader = 0; leader < planes; ++leader) {
        if (mission.planes[leader].leader != leader)
            continue;
        std::string members = id(leader);
        for (int32_t plane = 0; plane < planes; ++plane)
            if (plane != leader && mission.planes[plane].leader == leader)
                members += "," + id(plane);
        put(1, "11 GID:" + number(ids.drawFree()) + " IDS:" + members + " LID:" + id(leader));
    }
}

std::string Writer::guid() {
    char buffer[40];
    uint32_t parts[4];
    for (uint32_t& part : parts)
        part = random.next();
    std::snprintf(buffer, sizeof buffer, "%08x-%04x-%04x-%04x-%04x%08x", parts[0], parts[1] >> 16,
                  parts[1] & 0xFFFFU, parts[2] >> 16, parts[2] & 0xFFFFU, parts[3]);
    return buffer;
}

void Writer::writeHuman() {
    nameObject(HumanTick, human + planes);
    const Plane& plane = mission.planes[human];
    const StandInFigures& type = aircraftType(plane.aircraft);
    Vector start = plane.position;
    if (plane.inAir) // five ticks on
        start = start + levelDirection(plane.heading) *
                            (type.speed / 3.6 * 0.8 * HumanTick / TicksPerSecond);
    std::string skin = plane.skin;
    std::replace(skin.begin(), skin.end(), '\\', '/');
    char fuel[16];
    std::snprintf(fuel, sizeof fuel, "%.3f", plane.fuel);
    const std::string account = guid();
    const std::string login = guid();
    const int32_t profile = random.getInt(0, static_cast<int32_t>(std::size(Profiles)) - 1);
    put(HumanTick, "10 PLID:" + id(human) + " PID:" + id(human + planes) +
                       " BUL:" + number(type.rounds) + " SH:0 BOMB:0 RCT:0 " + place(start, ",") +
                       " IDS:" + account + " LOGIN:" + login + " NAME:" + Profiles[profile] +
                       " TYPE:" + type.logType + " COUNTRY:" + number(plane.country) +
                       " FORM:" + number(plane.numberInFormation) + " FIELD:0 INAIR:" +
                       (plane.inAir ? "1" : "0") + " PARENT:-1 PAYLOAD:" + number(plane.payload) +
                       " FUEL:" + fuel + " SKIN:" + skin + " WM:1");
}

/// Events and objectives by their ticks.
void Writer::writeEvents() {
    std::vector<const Objective*> objectives;
    for (const Objective& objective : mission.objectives)
        if (objective.delay >= 0)
            objectives.push_back(&objective);
    std::stable_sort(objectives.begin(), objectives.end(),
                     [](const Objective* a, const Objective* b) { return a->delay < b->delay; });
    size_t next = 0;
    const auto dueBy = [&](int32_t tick) {
        return next < objectives.size() && objectives[next]->delay * TicksPerSecond <= tick;
    };
    for (const Event& event : flight.events) {
        while (dueBy(event.tick))
            writeObjective(*objectives[next++]);
        writeEvent(event);
    }
    while (dueBy(flight.endTick))
        writeObjective(*objectives[next++]);
}

void Writer::writeObjective(const Objective& objective) {
    const int32_t due = static_cast<int32_t>(objective.delay * TicksPerSecond);
    put(std::max(due, HumanTick + 1),
        "8 OBJID:" + number(objective.index) + " POS" + place(objective.position, ",") +
            " COAL:" + number(objective.coalition) + " TYPE:" + number(objective.taskType) +
            " RES:" + number(objective.success) + " ICTYPE:" + number(objective.iconType));
}

/// Leaves out what the simulator doesn't log.
void Writer::writeEvent(const Event& event) {
    const bool aboutHuman = concernsHuman(event.attacker) || concernsHuman(event.target);
    if (!aboutHuman && event.kind != EventKind::Destroyed)
        return;
    nameObject(event.tick, event.attacker);
    nameObject(event.tick, event.target);
    const std::string both = " AID:" + id(event.attacker) + " TID:" + id(event.target);
    const std::string position = " POS" + place(event.position, ",");
    const std::string spaced = " POS" + place(event.position, ", ");
    switch (event.kind) {
    case EventKind::Hit: {
        const Ammunition& belt =
            isGerman(countryOf(event.attacker)) ? GermanAmmunition : AlliedAmmunition;
        put(event.tick, std::string("1 AMMO:") +
                            (event.armourPiercing ? belt.armourPiercing : belt.ball) + both);
        break;
    }
    case EventKind::Damage:
        put(event.tick, "2 DMG:" + thousandths(event.damage) + both + position);
        break;
    case EventKind::Destroyed:
        put(event.tick, "3" + both + position);
        break;
    case EventKind::TakeOff:
        put(event.tick, "5 PID:" + id(event.target) + spaced);
        break;
    case EventKind::Landed:
        put(event.tick, "6 PID:" + id(event.target) + spaced);
        break;
    case EventKind::Position:
        put(event.tick, "17 ID:" + id(event.target) + position);
        break;
    }
}

void Writer::writeSortieEnd(int32_t plane, int32_t tick) {
    const PlaneEnd& end = flight.planes[plane];
    put(tick, "4 PLID:" + id(plane) + " PID:" + id(plane + planes) + " BUL:" + number(end.rounds) +
                  " SH:0 BOMB:0 RCT:0 " + place(end.position, ","));
}

/// The ends of the human's sortie, of his body and of the mission; then the computer's surviving
/// pilots, sorted by id.
void Writer::writeEnd() {
    const PlaneEnd& end = flight.planes[human];
    const int32_t tick = flight.endTick;
    writeSortieEnd(human, tick);
    if (!end.pilotAlive && random.getInt(1, 100) <= 15)
        writeSortieEnd(human, tick); // some logs repeat it for a dead pilot
    put(tick + 1, "16 BOTID:" + id(human + planes) + " POS" +
                      place(end.position + Vector{0.25, -0.25, -0.375}, ","));
    put(tick + 2, "7 ");
    std::vector<int32_t> order(mission.planes.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](int32_t a, int32_t b) { return ids.of(a) < ids.of(b); });
    for (const int32_t plane : order) {
        if (plane == human || !flight.planes[plane].pilotAlive)
            continue;
        nameObject(tick + 2, plane);
        nameObject(tick + 2, plane + planes);
        writeSortieEnd(plane, tick + 2);
    }
}

/// A random tick during the flight.
int32_t Writer::breakOffTick() {
    const int32_t share = random.getInt(25, 85);
    int32_t tick = std::max(flight.endTick / 100 * share, options.notBefore);
    for (const Event& event : flight.events)
        if (event.kind == EventKind::Destroyed && event.target == human + planes &&
            options.notBefore == 0)
            tick = std::min(tick, event.tick - 1);
    return std::clamp(tick, std::min(EarliestBreakOff, flight.endTick - 1), flight.endTick - 1);
}

} // namespace

std::vector<std::string> writeLog(const Mission& mission, const FlightCourse& flight,
                                  const LogOptions& options, zel::Random& random) {
    return Writer(mission, flight, options, random).write();
}

} // namespace standin
